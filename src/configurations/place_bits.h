#ifndef QUORVANE_CONFIGURATIONS_PLACE_BITS_H_
#define QUORVANE_CONFIGURATIONS_PLACE_BITS_H_

#include <algorithm>
#include <cstdint>

#include "board/table.h"
#include "board/types.h"
#include "configurations/configuration_word.h"

namespace quorvane {

// By kind and square, the bits that a white piece has by its square alone.
inline constexpr auto placeBitsOfWhite = [] {
  // How far a rank or a file is from the nearer edge of the board, 0 to 3.
  const auto edgeDistance = [](std::int32_t rankOrFile) { return std::min(rankOrFile, 7 - rankOrFile); };

  Table<Table<ConfigurationWord, squareCount>, pieceKindCount> table{};
  for (Square square = 0; square < squareCount; ++square) {
    const std::int32_t rank = rankOf(square);
    const std::int32_t fromEdge = edgeDistance(rank);
    const std::int32_t fileFromEdge = edgeDistance(fileOf(square));

    // A pawn on its own first rank, which only a start position can hold, has none.
    if (rank >= 1 && rank <= 6) {
      table[pawnKind][square] = pawn_bits::onRelativeRank(rank) | pawn_bits::onFileFromEdge(fileFromEdge);
    }

    // The two central ranks and files, the four corners of 2 by 2 squares, and the shoulders between them.
    const std::int32_t inner = std::max(fromEdge, fileFromEdge);
    const ConfigurationWord zone = inner == 3 ? crossZone : inner == 2 ? shoulderZone : cornerZone;
    // Steps along ranks and files to the nearest central square.
    const std::int32_t centreDistance = (3 - fromEdge) + (3 - fileFromEdge);
    const ConfigurationWord centre = atCentreDistance(std::min(centreDistance, 5));
    ConfigurationWord minor = 0;
    if (rank >= 4) minor |= minor_bits::inOpponentsHalf;
    if (fileFromEdge == 0) minor |= minor_bits::onEdgeFile;

    table[knightKind][square] = zone | centre | minor;
    table[bishopKind][square] = zone | centre | minor;
    table[rookKind][square] = zone | centre;
    table[queenKind][square] = zone | centre;
    table[kingKind][square] = zone | king_bits::onRing(std::min(fromEdge, fileFromEdge));
  }
  return table;
}();

// The bits that a piece has by its square alone, whatever else stands on the board: zone, centre distance,
// ring, file, rank, half, edge. Black sees the board mirrored, rank 8 as its first.
constexpr ConfigurationWord placeBits(std::int32_t kind, Side side, Square square) {
  return placeBitsOfWhite[kind][side == white ? square : square ^ 56];
}

static_assert(placeBits(rookKind, white, 6) == (cornerZone | configurationBit(31)));
static_assert(placeBits(kingKind, black, 60) == (crossZone | configurationBit(28)));
static_assert(placeBits(knightKind, black, 21) ==
              (shoulderZone | atCentreDistance(2) | minor_bits::inOpponentsHalf));

}  // namespace quorvane

#endif  // QUORVANE_CONFIGURATIONS_PLACE_BITS_H_

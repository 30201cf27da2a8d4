#ifndef QUORVANE_CONFIGURATIONS_SQUARE_MASKS_H_
#define QUORVANE_CONFIGURATIONS_SQUARE_MASKS_H_

#include <algorithm>
#include <cstdint>

#include "board/table.h"
#include "board/types.h"
#include "configurations/configuration_word.h"

namespace quorvane {

// How far a rank or a file is from the nearer edge of the board, 0 to 3.
constexpr std::int32_t edgeDistance(std::int32_t rankOrFile) {
  return std::min(rankOrFile, 7 - rankOrFile);
}

template <typename Rule>
constexpr Table<ConfigurationWord, squareCount> masksBySquare(Rule rule) {
  Table<ConfigurationWord, squareCount> table{};
  for (Square square = 0; square < squareCount; ++square) {
    table[square] = rule(edgeDistance(rankOf(square)), edgeDistance(fileOf(square)));
  }
  return table;
}

// The zones of all pieces but pawns: the two central ranks and files, the four corners of 2 by 2 squares, and
// the shoulders between them.
inline constexpr auto zoneMask = masksBySquare([](std::int32_t rank, std::int32_t file) {
  const std::int32_t inner = std::max(rank, file);
  return inner == 3 ? crossZone : inner == 2 ? shoulderZone : cornerZone;
});

// Steps along ranks and files to the nearest central square; 5 stands for 6 as well.
inline constexpr auto centreMask = masksBySquare([](std::int32_t rank, std::int32_t file) {
  return atCentreDistance(std::min((3 - rank) + (3 - file), 5));
});

inline constexpr auto ringMask = masksBySquare(
    [](std::int32_t rank, std::int32_t file) { return king_bits::onRing(std::min(rank, file)); });

static_assert(zoneMask[6] == cornerZone && zoneMask[4] == crossZone && zoneMask[21] == shoulderZone);
static_assert(centreMask[6] == configurationBit(31) && centreMask[27] == configurationBit(26));
static_assert(ringMask[4] == configurationBit(28) && ringMask[27] == configurationBit(31));

}  // namespace quorvane

#endif  // QUORVANE_CONFIGURATIONS_SQUARE_MASKS_H_

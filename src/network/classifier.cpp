#include <algorithm>

#include "board/piece.h"
#include "board/piece_classes.h"
#include "board/ring.h"
#include "network/network.h"

namespace quorvane {

namespace {

// The special endings, each of which has a row of its own in the network table.
enum SpecialEnding : PositionType {
  rookEnding = 0,  // the first four against a bare king
  onePawnEnding = 1,
  queenEnding = 2,
  twoBishopsEnding = 3,
  kingsAndPawns = 4,  // at least two pawns, on either side
  bishopAndKnightEnding = 5
};

// How many pieces of each kind the side has.
using PieceCounts = Table<std::int32_t, pieceKindCount>;

PositionType typeByMaterial(const PieceCounts& first, const PieceCounts& second, std::int32_t total) {
  const auto aSideHas = [&](PieceKind kind, std::int32_t count) {
    return first[kind] == count || second[kind] == count;
  };
  const auto hasBishopAndKnight = [](const PieceCounts& counts) {
    return counts[bishopKind] == 1 && counts[knightKind] == 1;
  };
  if (total == rookClass.material && aSideHas(rookKind, 1)) return rookEnding;
  if (total == whitePawnClass.material && aSideHas(pawnKind, 1)) return onePawnEnding;
  if (total == queenClass.material && aSideHas(queenKind, 1)) return queenEnding;
  if (total == 2 * bishopClass.material && aSideHas(bishopKind, 2)) return twoBishopsEnding;
  const std::int32_t pawns = first[pawnKind] + second[pawnKind];
  if (pawns >= 2 && total == pawns * whitePawnClass.material) return kingsAndPawns;
  if (total == bishopClass.material + knightClass.material &&
      (hasBishopAndKnight(first) || hasBishopAndKnight(second))) {
    return bishopAndKnightEnding;
  }
  // Bands of ten pawns each, the last one open.
  constexpr std::int32_t band = 10 * whitePawnClass.material;
  return std::min(firstLearnedType + total / band, lastPositionType);
}

}  // namespace

bool Network::isPawnEnding(PositionType type) {
  return type == onePawnEnding || type == kingsAndPawns;
}

PositionType Network::classifyPosition(PositionType requested, bool clear) {
  positionType = requested;
  if (requested == classifyBoard) {
    std::int32_t total = 0;
    const auto count = [&total](Side side) {
      PieceCounts counts{};
      for (const Piece& piece : Ring(kings[side])) {
        ++counts[piece.kind];
        total += piece.material;
      }
      return counts;
    };
    const PieceCounts moving = count(currentMove.sideToMove);
    const PieceCounts opposing = count(opponent(currentMove.sideToMove));
    positionType = typeByMaterial(moving, opposing, total);
  }
  pawnEnding = isPawnEnding(positionType);
  if (clear) clearCaches();
  currentLists = &networkTable[positionType];
  return positionType;
}

}  // namespace quorvane

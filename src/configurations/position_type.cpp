#include "configurations/position_type.h"

#include <algorithm>

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

}  // namespace

PositionType positionTypeOf(const PieceCounts& first, const PieceCounts& second) {
  const auto aSideHas = [&](PieceKind kind, std::int32_t count) {
    return first[kind] == count || second[kind] == count;
  };
  const auto hasBishopAndKnight = [](const PieceCounts& counts) {
    return counts[bishopKind] == 1 && counts[knightKind] == 1;
  };
  const std::int32_t total = materialOf(first) + materialOf(second);
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

bool isPawnEnding(PositionType type) {
  return type == onePawnEnding || type == kingsAndPawns;
}

}  // namespace quorvane

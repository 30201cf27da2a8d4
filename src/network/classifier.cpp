#include <cassert>

#include "board/piece.h"
#include "board/ring.h"
#include "configurations/position_type.h"
#include "network/network.h"

namespace quorvane {

PositionType Network::classifyPosition(PositionType requested, bool clear) {
  assert(requested >= classifyBoard && requested < positionTypeCount);
  positionType = requested;
  if (requested == classifyBoard) {
    const auto count = [](Side side) {
      PieceCounts counts{};
      for (const Piece& piece : Ring(kings[side])) ++counts[piece.kind];
      return counts;
    };
    positionType = positionTypeOf(count(white), count(black));
  }
  pawnEnding = isPawnEnding(positionType);
  if (clear) clearCaches();
  currentLists = &networkTable[positionType];
  return positionType;
}

}  // namespace quorvane

#include <cassert>

#include "configurations/position_type.h"
#include "network/network.h"

namespace quorvane {

PositionType Network::classifyPosition(PositionType requested, bool clear) {
  assert(requested >= classifyBoard && requested < positionTypeCount);
  positionType = requested;
  if (requested == classifyBoard) {
    positionType = positionTypeOf(countsOf(squaresOf[white]), countsOf(squaresOf[black]));
  }
  pawnEnding = isPawnEnding(positionType);
  if (clear) clearCaches();
  currentLists = &networkTable[positionType];
  return positionType;
}

}  // namespace quorvane

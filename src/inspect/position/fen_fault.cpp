#include "inspect/position/fen_fault.h"

#include <cstdlib>

#include "board/piece.h"

namespace quorvane::inspect {

std::string PositionFault::text() {
  const Square one = kings[white]->square;
  const Square other = kings[black]->square;
  if (std::abs(rankOf(one) - rankOf(other)) <= 1 && std::abs(fileOf(one) - fileOf(other)) <= 1) {
    return "puts the kings side by side";
  }
  if (kings[opponent(currentMove.sideToMove)]->isAttacked())
    return "leaves the side that is not to move in check";
  return {};
}

}  // namespace quorvane::inspect

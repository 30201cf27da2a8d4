#ifndef QUORVANE_INSPECT_POSITION_FEN_FAULT_H_
#define QUORVANE_INSPECT_POSITION_FEN_FAULT_H_

#include <string>

#include "board/board.h"

namespace quorvane::inspect {

// What keeps the position on the board from being one: kings side by side, or the side not to move in check.
// Empty if there is nothing.
struct PositionFault : public Board {
  static std::string text();
};

}  // namespace quorvane::inspect

#endif  // QUORVANE_INSPECT_POSITION_FEN_FAULT_H_

#ifndef QUORVANE_BOARD_FEN_FAULT_H_
#define QUORVANE_BOARD_FEN_FAULT_H_

#include <string>

#include "board/strict_fen.h"

namespace quorvane {

// What keeps a FEN from being that of a chess position, as far as the text alone tells: ranks that are not
// eight of eight files, kings that are not one each, pawns on the first or last rank, a side to move that is
// neither w nor b. Empty if there is nothing. What follows the side to move is not looked at.
std::string faultIn(const StrictFen& fen);

}  // namespace quorvane

#endif  // QUORVANE_BOARD_FEN_FAULT_H_

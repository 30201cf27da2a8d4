#ifndef QUORVANE_INSPECT_POSITION_SAN_H_
#define QUORVANE_INSPECT_POSITION_SAN_H_

#include "board/board.h"
#include "inspect/position/move_text.h"

namespace quorvane::inspect {

// Why a move cannot be played.
enum class SanFault {
  none,
  unreadable,       // no move at all
  noPiece,          // no piece goes there
  kingInCheck,      // it leaves its own king in check
  ambiguous,        // two pieces may go there
  opponentInCheck,  // the side that is not to move stands in check, in a start position
  tooLong           // the board keeps no more plies
};

// The same in a few words, behind "a move that".
const char* textOf(SanFault fault);

// Moves in standard algebraic notation, read by the rules of chess: who may go there is found by who may
// legally go there. Castling may be written with zeros, signs may follow any move, both squares may be given
// (e2-e4).
struct SanMoves : public Board {
  // Plays an element of the game's text if it is a move. If it cannot be played, the position stays.
  static SanFault play(const MoveElement& element);
};

}  // namespace quorvane::inspect

#endif  // QUORVANE_INSPECT_POSITION_SAN_H_

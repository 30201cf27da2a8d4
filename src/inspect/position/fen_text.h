#ifndef QUORVANE_INSPECT_POSITION_FEN_TEXT_H_
#define QUORVANE_INSPECT_POSITION_FEN_TEXT_H_

#include <string>
#include <string_view>

#include "board/board.h"

namespace quorvane::inspect {

// What keeps a text from being the FEN of a chess position, as far as the text alone tells: ranks that are not eight of
// eight files, kings that are not one each, pawns on the first or last rank, a side to move that is neither w nor b.
// Empty if there is nothing. What follows the side to move is not looked at.
std::string faultInFen(std::string_view fen);

// Of the position on the board.
class PositionText : public Board {
 public:
  // Its FEN: castling rights and en passant square as its moves have left them, no halfmoves, and the number of the
  // move that comes next. A start position has the castling rights of the usual one, as far as kings and rooks stand.
  static std::string fen();

  // What keeps it from being a chess position: kings side by side, or the side not to move in check. Empty if nothing.
  static std::string fault();
};

}  // namespace quorvane::inspect

#endif  // QUORVANE_INSPECT_POSITION_FEN_TEXT_H_

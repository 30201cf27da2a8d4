#ifndef QUORVANE_BOARD_BOARD_FEN_H_
#define QUORVANE_BOARD_BOARD_FEN_H_

#include <string>

#include "board/board.h"

namespace quorvane {

// The FEN of the position on the board: castling rights and en passant square as its moves have left them, no
// halfmoves, and the number of the move that comes next. A start position has the castling rights of the
// usual one, as far as kings and rooks stand.
struct BoardFen : public Board {
  static std::string text();
};

}  // namespace quorvane

#endif  // QUORVANE_BOARD_BOARD_FEN_H_

#include "board/board_fen.h"

#include <utility>

#include "board/piece.h"
#include "board/piece_letter.h"
#include "board/square_name.h"

namespace quorvane {

namespace {

struct Fields : public Board {
  static std::string pieces() {
    std::string text;
    for (std::int32_t rank = 7; rank >= 0; --rank) {
      char empty = '0';
      for (std::int32_t file = 0; file < 8; ++file) {
        const Piece& piece = *board[squareAt(rank, file)];
        if (piece.kind == emptyKind) {
          ++empty;
          continue;
        }
        if (empty != '0') text += std::exchange(empty, '0');
        text += pieceLetter(piece.side, piece.kind);
      }
      if (empty != '0') text += empty;
      if (rank != 0) text += '/';
    }
    return text;
  }

  static std::string castling() {
    std::string text;
    const auto unmoved = [](PieceKind kind, Side side, Square square) {
      const Piece& piece = *board[square];
      return piece.kind == kind && piece.side == side && piece.moveCount == 0;
    };
    for (const Side side : {white, black}) {
      const Square corner = squareAt(relativeRank(side, 0), 0);
      if (!unmoved(kingKind, side, corner + 4)) continue;
      if (unmoved(rookKind, side, corner + 7)) text += pieceLetter(side, kingKind);
      if (unmoved(rookKind, side, corner)) text += pieceLetter(side, queenKind);
    }
    return text.empty() ? "-" : text;
  }

  static std::int32_t moveNumber() {
    const bool blackBegan = (history->depth % 2 == 0) == (currentMove.sideToMove == black);
    return (history->depth + (blackBegan ? 1 : 0)) / 2 + 1;
  }
};

}  // namespace

std::string BoardFen::text() {
  return Fields::pieces() + (currentMove.sideToMove == white ? " w " : " b ") + Fields::castling() + ' ' +
         (enPassantSquare == noSquare ? "-" : squareName(enPassantSquare)) + " 0 " +
         std::to_string(Fields::moveNumber());
}

}  // namespace quorvane

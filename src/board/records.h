#ifndef QUORVANE_BOARD_RECORDS_H_
#define QUORVANE_BOARD_RECORDS_H_

#include <cassert>
#include <cstdint>

#include "board/types.h"

namespace quorvane {

class Piece;

// Why playGameMove refused a move; in MoveRecord::status.
inline constexpr std::int32_t statusTooDeep = 2;
inline constexpr std::int32_t statusOpponentInCheck = 7;

// A move, and the registers through which the move operations talk to each other; copied as one block.
struct MoveRecord {
  Square from;
  Square to;
  MoveKind kind;
  std::int32_t status;      // the last refusal of playGameMove that has a number; never cleared
  std::uint8_t sideToMove;  // white or black
  std::uint8_t found;       // bool: the answer of testMove
};

// The moves generated into Board::moveBuffer. One list exists at a time.
struct MoveList {
  MoveRecord* cursor;  // where the next record goes
  std::int32_t count;
};

// What unmakeMove needs of one made move.
struct UndoRecord {
  Piece* movedPiece;     // what stands on toSquare after the move; the new piece after a promotion
  Piece* capturedPiece;  // what stood on toSquare before it, possibly the empty square
  Piece* auxPiece;       // castling: the rook; en passant: the captured pawn; promotion: the pawn
  Square fromSquare;
  Square toSquare;
  Square auxFrom;          // castling: the rook's start; en passant: the captured pawn's square
  Square auxTo;            // castling: the rook's destination
  MoveKind undoKind;       // 0 to 7; a double step counts as ordinary
  Square enPassantBefore;  // Board::enPassantSquare before the move
};

// Room for made moves, and for the keys of the positions between them.
inline constexpr std::int32_t historyCapacity = 441;
// playGameMove makes a move only if the depth two plies further on stays below this.
inline constexpr std::int32_t depthLimit = 400;

// The made moves, a stack.
struct HistoryStack {
  std::int32_t depth;
  UndoRecord records[historyCapacity];

  // The record of the n-th made move, counted from 1.
  UndoRecord& record(std::int32_t n) {
    assert(n >= 1 && n <= historyCapacity);
    return records[n - 1];
  }
};

}  // namespace quorvane

#endif  // QUORVANE_BOARD_RECORDS_H_

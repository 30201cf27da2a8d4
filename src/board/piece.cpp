#include "board/piece.h"

#include <new>

#include "board/piece_classes.h"

namespace quorvane {

Piece::Piece(const PieceClass& pieceClass, Side newSide, Square newSquare, std::int32_t newId,
             Piece* copyFrom)
    : keyIndex(pieceClass.keyIndex),
      directions(pieceClass.directions),
      kind(pieceClass.kind),
      material(pieceClass.material) {
  if (copyFrom == nullptr) {
    moveCount = 0;
    side = newSide;
    id = newId;
    square = newSquare;
  } else {
    side = copyFrom->side;
    moveCount = copyFrom->moveCount;
    id = copyFrom->id;
    square = copyFrom->square;
    next = copyFrom->next;
    prev = copyFrom->prev;
    prev->next = this;
    next->prev = this;
  }
  if (side == white) keyIndex += whiteKeyOffset;
  pieceById[id] = this;
  board[square] = this;
  if (copyFrom != nullptr) return;

  const bool opensRing =
      square == noSquare || id == firstWhiteId || id == firstBlackId || id == emptySquareId;
  if (opensRing) {
    prev = this;
    next = this;
  } else {
    next = pieceById[id + 1];
    prev = next->prev;
    prev->next = this;
    next->prev = this;
  }
}

Piece::Piece(Side newSide, Square newSquare, std::int32_t newId, Piece* copyFrom)
    : Piece(emptySquareClass, newSide, newSquare, newId, copyFrom) {}

WhitePawn::WhitePawn(Side newSide, Square newSquare, std::int32_t newId, Piece* copyFrom)
    : Piece(whitePawnClass, newSide, newSquare, newId, copyFrom) {}

BlackPawn::BlackPawn(Side newSide, Square newSquare, std::int32_t newId, Piece* copyFrom)
    : Piece(blackPawnClass, newSide, newSquare, newId, copyFrom) {}

Knight::Knight(Side newSide, Square newSquare, std::int32_t newId, Piece* copyFrom)
    : Piece(knightClass, newSide, newSquare, newId, copyFrom) {}

Bishop::Bishop(Side newSide, Square newSquare, std::int32_t newId, Piece* copyFrom)
    : Piece(bishopClass, newSide, newSquare, newId, copyFrom) {}

Rook::Rook(Side newSide, Square newSquare, std::int32_t newId, Piece* copyFrom)
    : Piece(rookClass, newSide, newSquare, newId, copyFrom) {}

Queen::Queen(Side newSide, Square newSquare, std::int32_t newId, Piece* copyFrom)
    : Piece(queenClass, newSide, newSquare, newId, copyFrom) {}

King::King(Side newSide, Square newSquare, std::int32_t newId, Piece* copyFrom)
    : Piece(kingClass, newSide, newSquare, newId, copyFrom) {}

void Piece::release(Piece* piece) {
  // Plain storage: no piece has a destructor to run, and the storage does not need to know its class.
  ::operator delete(static_cast<void*>(piece));
}

}  // namespace quorvane

#include "board/piece.h"

#include <new>

#include "board/piece_classes.h"

namespace quorvane {

namespace {

// Storage that was given back, one behind the other: each game needs as many pieces again.
struct FreeStorage {
  FreeStorage* next;
};
FreeStorage* freeStorage = nullptr;

}  // namespace

void* Piece::operator new(std::size_t) {
  static_assert(sizeof(King) >= sizeof(Queen) && alignof(King) <= alignof(std::max_align_t));
  if (freeStorage == nullptr) return ::operator new(sizeof(King));  // the largest class
  FreeStorage* const storage = freeStorage;
  freeStorage = storage->next;
  return storage;
}

void Piece::operator delete(void* piece) {
  freeStorage = ::new (piece) FreeStorage{freeStorage};
}

void Piece::release(Piece* piece) {
  operator delete(piece);  // no piece has a destructor to run
}

void Piece::releaseStorage() {
  while (freeStorage != nullptr) {
    FreeStorage* const storage = freeStorage;
    freeStorage = storage->next;
    ::operator delete(storage);
  }
}

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
    toggleSquares(copyFrom, setOf(square));
  }
  if (kind != emptyKind) toggleSquares(this, setOf(square));
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

}  // namespace quorvane

#include "board/piece.h"

#include <cassert>
#include <new>

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
  assert(id >= 0 && id < pieceIdCount && square >= 0 && (square < squareCount || kind == emptyKind));
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
    assert(next != nullptr && next->side == side);  // ids run down without a gap
    prev = next->prev;
    prev->next = this;
    next->prev = this;
  }
}

Piece* Piece::make(PieceKind kind, Side side, Square square, std::int32_t id, Piece* copyFrom) {
  switch (kind) {
    case pawnKind:
      if (side == white) return new WhitePawn(side, square, id, copyFrom);
      return new BlackPawn(side, square, id, copyFrom);
    case knightKind:
      return new Knight(side, square, id, copyFrom);
    case bishopKind:
      return new Bishop(side, square, id, copyFrom);
    case rookKind:
      return new Rook(side, square, id, copyFrom);
    case queenKind:
      return new Queen(side, square, id, copyFrom);
    case kingKind:
      return new King(side, square, id, copyFrom);
    case emptyKind:
      break;
  }
  return nullptr;
}

}  // namespace quorvane

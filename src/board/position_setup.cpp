#include "board/piece.h"
#include "board/placement.h"

namespace quorvane {

namespace {

Piece* newPiece(PieceKind kind, Side side, Square square, std::int32_t id) {
  switch (kind) {
    case pawnKind:
      if (side == white) return new WhitePawn(side, square, id, nullptr);
      return new BlackPawn(side, square, id, nullptr);
    case knightKind:
      return new Knight(side, square, id, nullptr);
    case bishopKind:
      return new Bishop(side, square, id, nullptr);
    case rookKind:
      return new Rook(side, square, id, nullptr);
    case queenKind:
      return new Queen(side, square, id, nullptr);
    case kingKind:
      return new King(side, square, id, nullptr);
    case emptyKind:
      break;
  }
  return nullptr;
}

// The lists of a side from the last to the first, so that the king opens the ring. Gives the king.
Piece* newSide(const Placement& placement, Side side, std::int32_t firstId) {
  Piece* king = nullptr;
  std::int32_t id = firstId;
  for (std::int32_t list = placementListsPerSide - 1; list >= 0; --list) {
    for (const std::uint8_t square : placement[side * placementListsPerSide + list]) {
      Piece* const piece = newPiece(placementKinds[list], side, square, id--);
      if (piece->kind == kingKind) king = piece;
    }
  }
  return king;
}

}  // namespace

void Board::setupPosition(const Placement& placement, Side side) {
  clearPosition();
  currentMove.sideToMove = static_cast<std::uint8_t>(side);
  enPassantSquare = noSquare;
  opposingKingIsSafe = false;
  EmptySquare = new Piece(noSide, noSquare, emptySquareId, nullptr);
  for (Square square = 0; square < squareCount; ++square) board[square] = EmptySquare;
  squaresOf = {};
  kings[white] = newSide(placement, white, firstWhiteId);
  kings[black] = newSide(placement, black, firstBlackId);
}

}  // namespace quorvane

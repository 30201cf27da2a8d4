#include <cassert>

#include "board/piece.h"
#include "board/placement.h"

namespace quorvane {

namespace {

// The lists of a side from the last to the first, so that the king opens the ring. Gives the king.
Piece* newSide(const Placement& placement, Side side, std::int32_t firstId) {
  Piece* king = nullptr;
  std::int32_t id = firstId;
  for (std::int32_t list = placementListsPerSide - 1; list >= 0; --list) {
    for (const std::uint8_t square : placement[side * placementListsPerSide + list]) {
      Piece* const piece = Piece::make(placementKinds[list], side, square, id--, nullptr);
      if (piece->kind == kingKind) king = piece;
    }
  }
  return king;
}

}  // namespace

void Board::setupPosition(const Placement& placement, Side side) {
  assert(placement.fitsBoard() && placement[whiteKingList].size() == 1 &&
         placement[blackKingList].size() == 1);
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

#include <initializer_list>

#include "board/mailbox.h"
#include "board/piece.h"

namespace quorvane {

namespace {

constexpr std::int32_t kingFile = 4;  // the e-file

}  // namespace

void King::testMove() {
  currentMove.kind = ordinaryMove;
  currentMove.found = false;
  const Square difference = currentMove.to - square;
  const std::int32_t file = fileOf(square);
  switch (difference) {
    case -8:
    case 8:
      currentMove.found = board[currentMove.to]->side != side;
      break;
    case -9:
    case -1:
    case 7:
      currentMove.found = file != 0 && board[currentMove.to]->side != side;
      break;
    case -7:
    case 1:
    case 9:
      currentMove.found = file != 7 && board[currentMove.to]->side != side;
      break;
    case 2:
      testCastling(1);
      break;
    case -2:
      testCastling(-1);
      break;
    default:
      break;
  }
}

void King::testCastling(Square direction) {
  // The file is tested, the rank is not: an unmoved king on the e-file of any rank may castle with an unmoved
  // rook.
  if (fileOf(square) != kingFile || moveCount != 0) return;
  const Square rookSquare = square + (direction > 0 ? 3 : -4);
  const Piece* rook = board[rookSquare];
  if (rook->moveCount != 0) return;
  for (Square between = square + direction; between != rookSquare; between += direction) {
    if (board[between] != EmptySquare) return;
  }
  if (rook->kind != rookKind || isAttacked()) return;

  const Square home = square;
  const auto stepTo = [this](Square to) {
    board[square] = EmptySquare;
    board[to] = this;
    toggleSquares(this, setOf(square) | setOf(to));
    square = to;
  };
  stepTo(home + direction);
  const bool crossedIsAttacked = isAttacked();
  stepTo(home);
  if (crossedIsAttacked) return;
  currentMove.found = true;
  currentMove.kind = direction > 0 ? castleKingSide : castleQueenSide;
}

std::int32_t King::generateMoves() {
  const std::int32_t before = activeMoveList->count;
  generateSteps();
  for (const std::int32_t twoFiles : {2, -2}) {
    const Square to = stepFrom(square, twoFiles);
    if (to == noSquare) continue;
    currentMove.to = to;
    testMove();
    if (currentMove.found) emit();
  }
  return activeMoveList->count - before;
}

void King::generateCaptures() {
  generateStepCaptures();
}

}  // namespace quorvane

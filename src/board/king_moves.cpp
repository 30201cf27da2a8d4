#include <initializer_list>

#include "board/mailbox.h"
#include "board/piece.h"
#include "board/reach_tables.h"

namespace quorvane {

namespace {

constexpr std::int32_t kingFile = 4;  // the e-file

}  // namespace

void King::testMove() {
  currentMove.kind = ordinaryMove;
  currentMove.found = false;
  const Square difference = currentMove.to - square;
  if (difference == 2 || difference == -2) {
    testCastling(difference / 2);
  } else if ((attackSet[kingKind][square] & setOf(currentMove.to)) != 0) {
    currentMove.found = board[currentMove.to]->side != side;
  }
}

void King::testCastling(Square direction) {
  // The file is tested, the rank is not: an unmoved king on the e-file of any rank may castle with an unmoved
  // rook.
  if (fileOf(square) != kingFile || moveCount != 0) return;
  const Square rookSquare = square + stepToCastlingRook(direction > 0);
  const Piece* rook = board[rookSquare];
  if (rook->moveCount != 0) return;
  for (Square between = square + direction; between != rookSquare; between += direction) {
    if (board[between] != EmptySquare) return;
  }
  if (rook->kind != rookKind || isAttacked()) return;

  const Square home = square;
  stepTo(home + direction);
  const bool crossedIsAttacked = isAttacked();
  stepTo(home);
  if (crossedIsAttacked) return;
  currentMove.found = true;
  currentMove.kind = direction > 0 ? castleKingSide : castleQueenSide;
}

std::int32_t King::generateMoves() {
  const std::int32_t before = activeMoveList->count;
  generateSteps(everyMove);
  for (const std::int32_t twoFiles : {2, -2}) {
    const Square to = stepFrom(square, twoFiles);
    if (to == noSquare) continue;
    currentMove.to = to;
    testMove();
    if (currentMove.found) emit();
  }
  return activeMoveList->count - before;
}

}  // namespace quorvane

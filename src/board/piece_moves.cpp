// Moves of knights, bishops, rooks and queens, and what they share with the king.

#include <cassert>
#include <cstdlib>

#include "board/mailbox.h"
#include "board/piece.h"

namespace quorvane {

namespace {

constexpr Square signOf(Square difference) {
  return (difference > 0) - (difference < 0);
}

}  // namespace

void Piece::emit() {
  assert(activeMoveList != nullptr && activeMoveList->count < moveBufferSize);
  currentMove.found = true;
  *activeMoveList->cursor++ = currentMove;
  ++activeMoveList->count;
}

void Piece::testMove() {
  currentMove.kind = ordinaryMove;
  currentMove.found = false;
}

void Piece::testLine(Square step) {
  for (Square between = square + step; between != currentMove.to; between += step) {
    if (board[between] != EmptySquare) return;
  }
  if (board[currentMove.to]->side == side) {
    currentMove.kind = ownPieceOnLine;
  } else {
    currentMove.found = true;
  }
}

void Piece::testDiagonal() {
  currentMove.found = false;
  const std::int32_t ranks = rankOf(currentMove.to) - rankOf(square);
  const std::int32_t files = fileOf(currentMove.to) - fileOf(square);
  if (ranks == 0 || std::abs(ranks) != std::abs(files)) return;
  testLine(signOf(ranks) * 8 + signOf(files));
}

void Piece::testStraight() {
  currentMove.found = false;
  const std::int32_t ranks = rankOf(currentMove.to) - rankOf(square);
  const std::int32_t files = fileOf(currentMove.to) - fileOf(square);
  if ((ranks == 0) == (files == 0)) return;  // another rank and another file, or the square itself
  testLine(signOf(ranks) * 8 + signOf(files));
}

std::int32_t Piece::generateRays(Wanted wanted) {
  const std::int32_t before = activeMoveList->count;
  currentMove.from = square;
  currentMove.kind = ordinaryMove;
  for (const std::int32_t* direction = directions; *direction != noSquare; ++direction) {
    currentMove.to = stepFrom(square, *direction);
    while (currentMove.to != noSquare) {
      const Piece* target = board[currentMove.to];
      if (target->side == side) break;
      const bool isFree = target->kind == emptyKind;
      if (!isFree || wanted == everyMove) emit();
      if (!isFree) break;
      currentMove.to = stepFrom(currentMove.to, *direction);
    }
  }
  return activeMoveList->count - before;
}

std::int32_t Piece::generateSteps(Wanted wanted) {
  const std::int32_t before = activeMoveList->count;
  currentMove.from = square;
  currentMove.kind = ordinaryMove;
  for (const std::int32_t* direction = directions; *direction != noSquare; ++direction) {
    currentMove.to = stepFrom(square, *direction);
    if (currentMove.to == noSquare) continue;
    const Piece* target = board[currentMove.to];
    if (target->side != side && (target->kind != emptyKind || wanted == everyMove)) emit();
  }
  return activeMoveList->count - before;
}

void Knight::testMove() {
  currentMove.kind = ordinaryMove;
  const std::int32_t ranks = rankOf(currentMove.to) - rankOf(square);
  const std::int32_t files = fileOf(currentMove.to) - fileOf(square);
  currentMove.found = ranks * ranks + files * files == 5 && board[currentMove.to]->side != side;
}

void Bishop::testMove() {
  currentMove.kind = ordinaryMove;
  testDiagonal();
}

void Rook::testMove() {
  currentMove.kind = ordinaryMove;
  testStraight();
}

void Queen::testMove() {
  currentMove.kind = ordinaryMove;
  if (fileOf(square) == fileOf(currentMove.to) || rankOf(square) == rankOf(currentMove.to)) {
    testStraight();
  } else {
    testDiagonal();
  }
}

}  // namespace quorvane

#include "board/piece.h"

namespace quorvane {

void Piece::testPawnMove(const PawnRules& rules) {
  currentMove.kind = ordinaryMove;
  currentMove.found = false;
  const Square to = currentMove.to;
  const Square difference = to - square;
  const Piece* target = board[to];
  const bool targetIsEmpty = target->kind == emptyKind;
  const MoveKind kindByRank = rankOf(to) == rules.promotionRank ? promoteToQueen : ordinaryMove;

  if (difference == rules.ahead) {
    if (!targetIsEmpty) return;
    currentMove.found = true;
    currentMove.kind = kindByRank;
  } else if (difference == 2 * rules.ahead) {
    if (rankOf(square) != rules.startRank || !targetIsEmpty) return;
    if (board[square + rules.ahead]->kind != emptyKind) return;
    currentMove.found = true;
    currentMove.kind = doubleStep;
  } else if ((difference == rules.firstCapture && fileOf(square) != rules.firstCaptureEdge) ||
             (difference == rules.secondCapture && fileOf(square) != rules.secondCaptureEdge)) {
    if (targetIsEmpty && to == enPassantSquare) {
      currentMove.found = true;
      currentMove.kind = enPassantCapture;
    } else if (!targetIsEmpty && target->side != side) {
      currentMove.found = true;
      currentMove.kind = kindByRank;
    }
  }
}

std::int32_t Piece::generatePawnMoves(const PawnRules& rules, Wanted wanted) {
  const std::int32_t before = activeMoveList->count;
  const bool promotes = rankOf(square) == rules.rankBeforePromotion;
  currentMove.from = square;

  // A queen and a knight stand for all promotions: playGameMove makes the others from these records.
  const auto emitForward = [&] {
    currentMove.kind = promotes ? promoteToQueen : ordinaryMove;
    emit();
    if (!promotes || wanted == capturesOnly) return;
    currentMove.kind = promoteToKnight;
    emit();
  };
  const auto emitCapture = [&](Square step, std::int32_t edge) {
    if (fileOf(square) == edge) return;
    currentMove.to = square + step;
    const Piece* target = board[currentMove.to];
    if (target->kind == emptyKind) {
      if (currentMove.to != enPassantSquare || wanted == capturesOnly) return;
      currentMove.kind = enPassantCapture;
      emit();
    } else if (target->side != side) {
      emitForward();
    }
  };

  emitCapture(rules.firstCapture, rules.firstCaptureEdge);
  emitCapture(rules.secondCapture, rules.secondCaptureEdge);
  currentMove.to = square + rules.ahead;
  const bool goesAhead = promotes || wanted == everyMove;  // a step to the last rank counts as a capture
  if (goesAhead && board[currentMove.to]->kind == emptyKind) {
    emitForward();
    if (rankOf(square) == rules.startRank && board[square + 2 * rules.ahead]->kind == emptyKind) {
      currentMove.to = square + 2 * rules.ahead;
      currentMove.kind = doubleStep;
      emit();
    }
  }
  return activeMoveList->count - before;
}

}  // namespace quorvane

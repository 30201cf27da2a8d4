#include "board/board.h"
#include "board/piece.h"

namespace quorvane {

namespace {

constexpr std::int32_t any = 8;  // fits every rank and every file

bool fits(std::int32_t wanted, std::int32_t value) {
  return wanted == any || wanted == value;
}

// A pawn takes only by these differences of square numbers.
bool isPawnCapture(Square difference) {
  return difference == 7 || difference == 9 || difference == -7 || difference == -9;
}

}  // namespace

bool Piece::isAttacked() {
  const MoveRecord saved = currentMove;
  currentMove.to = square;
  currentMove.found = false;
  Piece* const enemyKing = kings[side == black ? white : black];
  Piece* attacker = enemyKing;
  bool attacked = false;
  do {
    currentMove.from = attacker->square;
    if (attacker->kind != pawnKind || isPawnCapture(square - attacker->square)) {
      attacker->testMove();
      attacked = currentMove.found;
    }
    attacker = attacker->next;
  } while (!attacked && attacker->kind != kingKind);
  currentMove = saved;
  return attacked;
}

bool Board::playGameMove(std::int32_t fromRank, std::int32_t fromFile, std::int32_t toRank,
                         std::int32_t toFile, std::int32_t kind, std::int32_t promotion) {
  if (history->depth + 2 >= depthLimit) {
    currentMove.status = statusTooDeep;
    currentMove.found = false;
    return false;
  }
  if (kings[1 - currentMove.sideToMove]->isAttacked()) {
    currentMove.status = statusOpponentInCheck;
    currentMove.found = false;
    return false;
  }

  MoveList moves{moveBuffer, 0};
  activeMoveList = &moves;
  forEachInRing(kings[currentMove.sideToMove], [kind](Piece& piece) {
    if (piece.kind == kind) piece.generateMoves();
  });
  activeMoveList = nullptr;
  const MoveRecord* chosen = moveBuffer;
  while (chosen != moves.cursor &&
         !(fits(fromRank, rankOf(chosen->from)) && fits(fromFile, fileOf(chosen->from)) &&
           fits(toRank, rankOf(chosen->to)) && fits(toFile, fileOf(chosen->to)))) {
    ++chosen;
  }
  if (chosen == moves.cursor) return false;

  const bool promotes = promotion >= knightKind && promotion <= queenKind;
  if (promotes && kind == kingKind) return false;  // it would take the king out of its ring
  currentMove = *chosen;
  if (promotes) {
    // In the order of PieceKind. The record's own kind does not matter: the generators leave bishop and rook
    // out.
    constexpr MoveKind promotionMoves[] = {promoteToKnight, promoteToBishop, promoteToRook, promoteToQueen};
    currentMove.kind = promotionMoves[promotion - knightKind];
  }
  makeMove();
  if (kings[1 - currentMove.sideToMove]->isAttacked()) {
    unmakeMove();
    currentMove.found = false;
    return false;
  }
  return true;
}

}  // namespace quorvane

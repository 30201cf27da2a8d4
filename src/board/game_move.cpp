#include <cassert>

#include "board/piece.h"
#include "board/pseudo_legal_moves.h"
#include "board/reach_tables.h"

namespace quorvane {

bool Piece::isAttacked() {
  // Most pieces could not take here even on an empty board.
  SquareSet attackers = 0;
  for (std::int32_t attacker = 0; attacker < pieceKindCount; ++attacker)
    attackers |= squaresOf[opponent(side)][attacker] & attackSet[attacker][square];
  if (attackers == 0) return false;

  const MoveRecord saved = currentMove;
  currentMove.to = square;
  bool attacked = false;
  for (const Square from : Squares(attackers)) {
    board[from]->testMove();
    attacked = currentMove.found;
    if (attacked) break;
  }
  currentMove = saved;
  return attacked;
}

bool Board::findMove(const DecodedMove& wanted) {
  // Where the destination is known, as it is but for castling, testMove answers what a search through the
  // generated records would find: a piece has one move there, or a promotion, whose first record is the
  // queen's.
  if (wanted.toRank != anyRankOrFile && wanted.toFile != anyRankOrFile)
    return findMoveTo(squareAt(wanted.toRank, wanted.toFile), wanted);

  for (const MoveRecord& move : PseudoLegalMoves::of(wanted.kind)) {
    if (!PseudoLegalMoves::fits(wanted, move)) continue;
    currentMove = move;
    return true;
  }
  return false;
}

bool Board::findMoveTo(Square to, const DecodedMove& wanted) {
  currentMove.to = to;
  MoveRecord first = currentMove;
  first.found = false;
  const SquareSet candidates = squaresOf[currentMove.sideToMove][wanted.kind] & originSet[wanted.kind][to];
  for (const Square from : Squares(candidates)) {
    currentMove.from = from;
    if (!PseudoLegalMoves::fits(wanted, currentMove)) continue;
    // The ring holds the pieces of a kind by rising ids.
    if (first.found && board[first.from]->id < board[from]->id) continue;
    board[from]->testMove();
    if (!currentMove.found) continue;
    first = currentMove;
  }
  currentMove = first;
  return first.found;
}

bool Board::playGameMove(const DecodedMove& move) {
  assert(move.kind >= pawnKind && move.kind < pieceKindCount);
  for ([[maybe_unused]] const std::int32_t rankOrFile :
       {move.fromRank, move.fromFile, move.toRank, move.toFile})
    assert(rankOrFile >= 0 && rankOrFile <= anyRankOrFile);
  if (history->depth + 2 >= depthLimit) {
    currentMove.status = statusTooDeep;
    currentMove.found = false;
    return false;
  }
  if (!opposingKingIsSafe && kings[opponent(currentMove.sideToMove)]->isAttacked()) {
    currentMove.status = statusOpponentInCheck;
    currentMove.found = false;
    return false;
  }

  if (!findMove(move)) return false;

  const bool promotes = move.promotion >= knightKind && move.promotion <= queenKind;
  if (promotes && move.kind == kingKind) return false;  // it would take the king out of its ring
  // The record's own kind does not matter: the generators leave bishop and rook out.
  if (promotes) currentMove.kind = promotionTo(move.promotion);
  opposingKingIsSafe = PseudoLegalMoves::makeIfLegal(currentMove);
  if (!opposingKingIsSafe) currentMove.found = false;
  return opposingKingIsSafe;
}

}  // namespace quorvane

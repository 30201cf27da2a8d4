#include "board/board.h"
#include "board/piece.h"
#include "board/reach_tables.h"

namespace quorvane {

namespace {

constexpr std::int32_t any = 8;  // fits every rank and every file

bool fits(std::int32_t wanted, std::int32_t value) {
  return wanted == any || wanted == value;
}

}  // namespace

bool Piece::isAttacked() {
  const MoveRecord saved = currentMove;
  currentMove.to = square;
  currentMove.found = false;
  const SquareSet target = setOf(square);
  Piece* attacker = kings[side == black ? white : black];
  bool attacked = false;
  do {
    // Most pieces could not take here even on an empty board.
    if ((attackSet[attacker->kind][attacker->square] & target) != 0) {
      currentMove.from = attacker->square;
      attacker->testMove();
      attacked = currentMove.found;
    }
    attacker = attacker->next;
  } while (!attacked && attacker->kind != kingKind);
  currentMove = saved;
  return attacked;
}

bool Board::findMove(std::int32_t fromRank, std::int32_t fromFile, std::int32_t toRank, std::int32_t toFile,
                     std::int32_t kind) {
  const auto mayStartFrom = [&](Square square) {
    return fits(fromRank, rankOf(square)) && fits(fromFile, fileOf(square));
  };
  Piece* const ownKing = kings[currentMove.sideToMove];

  // Where the destination is known, as it is but for castling, testMove answers what a search through the
  // generated records would find: a piece has one move there, or a promotion, whose first record is the
  // queen's.
  if (toRank != any && toFile != any) {
    currentMove.to = squareAt(toRank, toFile);
    Piece* piece = ownKing;
    do {
      if (piece->kind == kind && mayStartFrom(piece->square)) {
        piece->testMove();
        if (currentMove.found) {
          currentMove.from = piece->square;
          return true;
        }
      }
      piece = piece->next;
    } while (piece->kind != kingKind);
    return false;
  }

  MoveList moves{moveBuffer, 0};
  activeMoveList = &moves;
  forEachInRing(ownKing, [kind](Piece& piece) {
    if (piece.kind == kind) piece.generateMoves();
  });
  activeMoveList = nullptr;
  for (const MoveRecord* move = moveBuffer; move != moves.cursor; ++move) {
    if (mayStartFrom(move->from) && fits(toRank, rankOf(move->to)) && fits(toFile, fileOf(move->to))) {
      currentMove = *move;
      return true;
    }
  }
  return false;
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

  if (!findMove(fromRank, fromFile, toRank, toFile, kind)) return false;

  const bool promotes = promotion >= knightKind && promotion <= queenKind;
  if (promotes && kind == kingKind) return false;  // it would take the king out of its ring
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

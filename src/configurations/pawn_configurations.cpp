#include <algorithm>
#include <cstdlib>

#include "board/piece.h"
#include "board/piece_classes.h"
#include "configurations/configuration_word.h"
#include "configurations/place_bits.h"

namespace quorvane {

namespace {

// Moves that a pawn needs to promote, by its rank as its own side counts it; the double step from the start
// rank is one move. Nothing is worked out for the outer ranks.
constexpr Table<std::int32_t, 8> pawnMoves = {{0, 5, 5, 4, 3, 2, 1, 0}};

std::int32_t stepsTo(const Piece& king, std::int32_t rank, std::int32_t file) {
  return std::max(std::abs(rankOf(king.square) - rank), std::abs(fileOf(king.square) - file));
}

}  // namespace

void Piece::addPawnConfiguration(const PawnRules& rules) {
  using namespace pawn_bits;
  const std::int32_t file = fileOf(square);

  const auto cover = [this](Square covered) {
    Piece& piece = *board[covered];
    if (piece.kind == emptyKind) return;
    piece.configuration |= piece.side == side ? guardedBy(pawnKind) : attackedBy(pawnKind);
  };
  if (file != rules.firstCaptureEdge) cover(square + rules.firstCapture);
  if (file != rules.secondCaptureEdge) cover(square + rules.secondCapture);

  if (board[square + rules.ahead]->kind != emptyKind) configuration |= blocked;

  const PawnFiles& ownFiles = side == white ? whitePawnFiles : blackPawnFiles;
  const PawnFiles& enemyFiles = side == white ? blackPawnFiles : whitePawnFiles;
  if (ownFiles[file + 1] != 0) configuration |= ownPawnOnFile;
  if (enemyFiles[file + 1] == 0) configuration |= noEnemyPawnOnFile;
  if (enemyFiles[file] == 0 && enemyFiles[file + 2] == 0) configuration |= noEnemyPawnBeside;
  if (ownFiles[file] != 0) configuration |= ownPawnTowardsA;
  if (ownFiles[file + 2] != 0) configuration |= ownPawnTowardsH;

  configuration |= placeBits(pawnKind, side, square);
  if (!pawnEnding) return;

  const std::int32_t ownRank = relativeRank(side, rankOf(square));
  const Piece& ownKing = *kings[side];
  const Piece& enemyKing = *kings[opponent(side)];
  const std::int32_t moves = pawnMoves[ownRank];
  std::int32_t enemyKingDistance = stepsTo(enemyKing, rules.promotionRank, file);
  if ((configuration & notOnMove) != 0) --enemyKingDistance;  // the enemy moves first
  const std::int32_t ownKingDistance = stepsTo(ownKing, rules.promotionRank, file);
  if (enemyKingDistance > moves) configuration |= outrunsEnemyKing;
  if (enemyKingDistance < moves && enemyKingDistance < ownKingDistance)
    configuration |= enemyKingFirstAtPromotion;
  if (relativeRank(side, rankOf(enemyKing.square)) > ownRank) configuration |= enemyKingAhead;
  if (relativeRank(side, rankOf(ownKing.square)) < ownRank) configuration |= ownKingBehind;
}

void WhitePawn::addConfiguration() {
  addPawnConfiguration(whitePawnRules);
}
void BlackPawn::addConfiguration() {
  addPawnConfiguration(blackPawnRules);
}

}  // namespace quorvane

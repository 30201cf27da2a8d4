#ifndef QUORVANE_CONFIGURATIONS_RELATION_BITS_H_
#define QUORVANE_CONFIGURATIONS_RELATION_BITS_H_

#include <algorithm>
#include <cstdint>

#include "board/pawn_files.h"
#include "board/piece_classes.h"
#include "board/square_set.h"
#include "board/table.h"
#include "board/types.h"
#include "configurations/configuration_word.h"

// The bits that a piece has by how it stands to others: material, files of pawns, and the kings.

namespace quorvane {

// The material bit of a piece whose side has `balance` thousandths of a pawn more than the other.
constexpr ConfigurationWord materialBit(std::int32_t balance) {
  constexpr std::int32_t margin = 500;
  if (balance > margin) return materialAhead;
  return balance < -margin ? materialBehind : 0;
}

constexpr std::int32_t rankDistance(Square a, Square b) {
  const std::int32_t ranks = rankOf(a) - rankOf(b);
  return ranks < 0 ? -ranks : ranks;
}
constexpr std::int32_t fileDistance(Square a, Square b) {
  const std::int32_t files = fileOf(a) - fileOf(b);
  return files < 0 ? -files : files;
}
// Steps of a king from the one square to the other.
constexpr std::int32_t kingDistance(Square a, Square b) {
  return std::max(rankDistance(a, b), fileDistance(a, b));
}

constexpr ConfigurationWord rookBits(Square rook, Square enemyKing) {
  ConfigurationWord bits = 0;
  if (fileDistance(rook, enemyKing) <= 2) bits |= rook_bits::enemyKingNearByFile;
  if (rankDistance(rook, enemyKing) <= 2) bits |= rook_bits::enemyKingNearByRank;
  return bits;
}

constexpr ConfigurationWord queenBits(Square queen, Square enemyKing) {
  const std::int32_t distance = kingDistance(queen, enemyKing);
  if (distance <= 2) return queen_bits::enemyKingWithin2;
  if (distance <= 4) return queen_bits::enemyKingWithin4;
  return distance <= 6 ? queen_bits::enemyKingWithin6 : 0;
}

// Of either king.
constexpr ConfigurationWord kingDistanceBits(Square king, Square otherKing) {
  const std::int32_t ranks = rankDistance(king, otherKing);
  const std::int32_t files = fileDistance(king, otherKing);
  ConfigurationWord bits = 0;
  if (ranks <= 3) bits |= king_bits::rankDistance[ranks];
  if (files <= 3) bits |= king_bits::fileDistance[files];
  return bits;
}

// Of a king, by the empty squares and the own pawns next to it.
constexpr ConfigurationWord neighbourBits(SquareSet emptySquares, SquareSet ownPawns) {
  ConfigurationWord bits = 0;
  if (holdsSeveral(ownPawns)) bits |= king_bits::twoOwnPawnsBeside;
  if (!holdsSeveral(emptySquares)) bits |= king_bits::hardlyAnyFreeNeighbour;
  return bits;
}

// Of knight to queen: `reached` are the empty squares that it reaches, the others the empty ones next to
// either king.
constexpr ConfigurationWord reachBits(SquareSet reached, SquareSet besideOwnKing, SquareSet besideEnemyKing) {
  ConfigurationWord bits = (reached & besideOwnKing) != 0 ? reachesBesideOwnKing : 0;
  const SquareSet both = reached & besideEnemyKing;
  if (both == 0) return bits;
  return bits | (holdsSeveral(both) ? reachesMoreBesideEnemyKing : reachesOneBesideEnemyKing);
}

// Of a pawn, by the files on which own and enemy pawns stand.
constexpr ConfigurationWord pawnFileBits(std::int32_t file, PawnFiles own, PawnFiles enemy) {
  using namespace pawn_bits;
  constexpr PawnFiles towardsA = 1;  // where the file and its neighbours come to lie
  constexpr PawnFiles same = 2;
  constexpr PawnFiles towardsH = 4;
  own >>= file;
  enemy >>= file;
  ConfigurationWord bits = 0;
  if ((own & same) != 0) bits |= ownPawnOnFile;
  if ((enemy & same) == 0) bits |= noEnemyPawnOnFile;
  if ((enemy & (towardsA | towardsH)) == 0) bits |= noEnemyPawnBeside;
  if ((own & towardsA) != 0) bits |= ownPawnTowardsA;
  if ((own & towardsH) != 0) bits |= ownPawnTowardsH;
  return bits;
}

// Of a pawn in a pawn ending: its race with the kings to the square on which it promotes.
constexpr ConfigurationWord raceBits(const PawnRules& rules, Square pawn, Square ownKing, Square enemyKing,
                                     bool onMove) {
  using namespace pawn_bits;
  // Moves that a pawn needs to promote, by its rank as its own side counts it; the double step from the start
  // rank is one move. 0 on the outer ranks.
  constexpr Table<std::int32_t, 8> pawnMoves = {{0, 5, 5, 4, 3, 2, 1, 0}};

  const std::int32_t rank = relativeRank(rules.side, rankOf(pawn));
  const std::int32_t moves = pawnMoves[rank];
  const Square promotion = squareAt(rules.promotionRank, fileOf(pawn));
  const std::int32_t ownKingMoves = kingDistance(ownKing, promotion);
  const std::int32_t enemyKingMoves = kingDistance(enemyKing, promotion) - (onMove ? 0 : 1);
  ConfigurationWord bits = 0;
  if (enemyKingMoves > moves) bits |= outrunsEnemyKing;
  if (enemyKingMoves < moves && enemyKingMoves < ownKingMoves) bits |= enemyKingFirstAtPromotion;
  if (relativeRank(rules.side, rankOf(enemyKing)) > rank) bits |= enemyKingAhead;
  if (relativeRank(rules.side, rankOf(ownKing)) < rank) bits |= ownKingBehind;
  return bits;
}

}  // namespace quorvane

#endif  // QUORVANE_CONFIGURATIONS_RELATION_BITS_H_

// Knight, bishop, rook and queen.

#include <algorithm>
#include <cstdlib>

#include "board/mailbox.h"
#include "board/piece.h"
#include "configurations/configuration_word.h"
#include "configurations/square_masks.h"

namespace quorvane {

namespace {

std::int32_t rankDistance(const Piece& a, const Piece& b) {
  return std::abs(rankOf(a.square) - rankOf(b.square));
}
std::int32_t fileDistance(const Piece& a, const Piece& b) {
  return std::abs(fileOf(a.square) - fileOf(b.square));
}

}  // namespace

// The empty square's piece describes nothing.
void Piece::addConfiguration() {}

void Piece::addReachOf(Square reached, std::int32_t& besideEnemyKing) {
  Piece& piece = *board[reached];
  if (piece.kind != emptyKind) {
    piece.configuration |= piece.side == side ? guardedBy(kind) : attackedBy(kind);
    return;
  }
  if ((*enemyKingReach)[reached] != 0) ++besideEnemyKing;
  if ((*ownKingReach)[reached] != 0) configuration |= reachesBesideOwnKing;
}

void Piece::addReachBySteps() {
  std::int32_t besideEnemyKing = 0;
  for (const std::int32_t* direction = directions; *direction != noSquare; ++direction) {
    const Square reached = stepFrom(square, *direction);
    if (reached != noSquare) addReachOf(reached, besideEnemyKing);
  }
  addPlace(besideEnemyKing);
}

void Piece::addReachAlongRays() {
  std::int32_t besideEnemyKing = 0;
  for (const std::int32_t* direction = directions; *direction != noSquare; ++direction) {
    Square reached = square;
    do {
      reached = stepFrom(reached, *direction);
      if (reached == noSquare) break;
      addReachOf(reached, besideEnemyKing);
    } while (board[reached]->kind == emptyKind);
  }
  addPlace(besideEnemyKing);
}

void Piece::addPlace(std::int32_t besideEnemyKing) {
  configuration |= zoneMask[square] | centreMask[square];
  if (besideEnemyKing == 1) configuration |= reachesOneBesideEnemyKing;
  if (besideEnemyKing >= 2) configuration |= reachesMoreBesideEnemyKing;
}

void Piece::addMinorPlace() {
  const bool inOpponentsHalf = side == white ? rankOf(square) >= 4 : rankOf(square) <= 3;
  if (inOpponentsHalf) configuration |= minor_bits::inOpponentsHalf;
  if (edgeDistance(fileOf(square)) == 0) configuration |= minor_bits::onEdgeFile;
}

void Knight::addConfiguration() {
  addReachBySteps();
  addMinorPlace();
}

void Bishop::addConfiguration() {
  addReachAlongRays();
  addMinorPlace();
}

void Rook::addConfiguration() {
  addReachAlongRays();
  const Piece& enemyKing = *kings[1 - side];
  if (fileDistance(*this, enemyKing) <= 2) configuration |= rook_bits::enemyKingNearByFile;
  if (rankDistance(*this, enemyKing) <= 2) configuration |= rook_bits::enemyKingNearByRank;
}

void Queen::addConfiguration() {
  addReachAlongRays();
  const Piece& enemyKing = *kings[1 - side];
  const std::int32_t kingDistance = std::max(fileDistance(*this, enemyKing), rankDistance(*this, enemyKing));
  if (kingDistance <= 2) {
    configuration |= queen_bits::enemyKingWithin2;
  } else if (kingDistance <= 4) {
    configuration |= queen_bits::enemyKingWithin4;
  } else if (kingDistance <= 6) {
    configuration |= queen_bits::enemyKingWithin6;
  }
}

}  // namespace quorvane

// Knight, bishop, rook and queen.

#include <algorithm>
#include <cstdlib>

#include "board/piece.h"
#include "board/reach_tables.h"
#include "configurations/configuration_word.h"
#include "configurations/place_bits.h"

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

void Piece::markReached(Piece& reached) const {
  reached.configuration |= reached.side == side ? guardedBy(kind) : attackedBy(kind);
}

void Piece::addReachAlongRays(std::int32_t firstRay, std::int32_t endRay) {
  SquareSet freeSquares = 0;
  for (std::int32_t ray = firstRay; ray < endRay; ++ray) {
    for (const std::uint8_t reached : raysFrom[square][ray]) {
      if (board[reached] != EmptySquare) {
        markReached(*board[reached]);
        break;
      }
      freeSquares |= setOf(reached);
    }
  }
  addPlace(freeSquares);
}

void Piece::addPlace(SquareSet freeSquares) {
  configuration |= placeBits(kind, side, square);
  if ((freeSquares & *ownKingReach) != 0) configuration |= reachesBesideOwnKing;
  const SquareSet besideEnemyKing = freeSquares & *enemyKingReach;
  if (besideEnemyKing == 0) return;
  const bool moreThanOne = (besideEnemyKing & (besideEnemyKing - 1)) != 0;
  configuration |= moreThanOne ? reachesMoreBesideEnemyKing : reachesOneBesideEnemyKing;
}

void Knight::addConfiguration() {
  SquareSet freeSquares = 0;
  for (const std::uint8_t reached : knightSteps[square]) {
    if (board[reached] == EmptySquare) {
      freeSquares |= setOf(reached);
    } else {
      markReached(*board[reached]);
    }
  }
  addPlace(freeSquares);
}

void Bishop::addConfiguration() {
  addReachAlongRays(0, firstStraightRay);
}

void Rook::addConfiguration() {
  addReachAlongRays(firstStraightRay, rayCount);
  const Piece& enemyKing = *kings[opponent(side)];
  if (fileDistance(*this, enemyKing) <= 2) configuration |= rook_bits::enemyKingNearByFile;
  if (rankDistance(*this, enemyKing) <= 2) configuration |= rook_bits::enemyKingNearByRank;
}

void Queen::addConfiguration() {
  addReachAlongRays(0, rayCount);
  const Piece& enemyKing = *kings[opponent(side)];
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

// Knight, bishop, rook and queen.

#include "board/piece.h"
#include "board/reach_tables.h"
#include "configurations/configuration_word.h"
#include "configurations/place_bits.h"
#include "configurations/relation_bits.h"

namespace quorvane {

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
  configuration |= reachBits(freeSquares, *ownKingReach, *enemyKingReach);
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
  configuration |= rookBits(square, kings[opponent(side)]->square);
}

void Queen::addConfiguration() {
  addReachAlongRays(0, rayCount);
  configuration |= queenBits(square, kings[opponent(side)]->square);
}

}  // namespace quorvane

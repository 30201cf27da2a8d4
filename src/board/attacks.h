#ifndef QUORVANE_BOARD_ATTACKS_H_
#define QUORVANE_BOARD_ATTACKS_H_

#include <bit>
#include <cstdint>

#include "board/reach_tables.h"
#include "board/square_set.h"
#include "board/table.h"

namespace quorvane {

// Does the ray lead to higher squares?
constexpr bool ascends(std::int32_t ray) {
  return directions::queen[ray] > 0;
}

// The squares that a piece reaches along the rays from `firstRay` to `endRay`: up to the first that is
// occupied, which is one of them. The classical approach: what lies behind the nearest piece is taken off the
// whole ray.
template <std::int32_t firstRay, std::int32_t endRay>
SquareSet slide(Square from, SquareSet occupied) {
  SquareSet reached = 0;
  for (std::int32_t ray = firstRay; ray < endRay; ++ray) {
    const SquareSet whole = raySets[from][ray];
    // The last square of the board stands in for a piece where there is none: no ray goes on behind it.
    if (ascends(ray)) {
      const Square nearest = std::countr_zero((whole & occupied) | setOf(squareCount - 1));
      reached |= whole & ~raySets[nearest][ray];
    } else {
      const Square nearest = squareCount - 1 - std::countl_zero((whole & occupied) | setOf(0));
      reached |= whole & ~raySets[nearest][ray];
    }
  }
  return reached;
}

// The squares that the pawns of a side cover.
constexpr SquareSet pawnAttacks(Side side, SquareSet pawns) {
  constexpr SquareSet fileA = 0x0101010101010101;
  const SquareSet towardsA = pawns & ~fileA;
  const SquareSet towardsH = pawns & ~(fileA << 7);
  return side == white ? towardsA << 7 | towardsH << 9 : towardsA >> 9 | towardsH >> 7;
}

// The squares that a knight, bishop, rook, queen or king reaches.
inline SquareSet attacks(PieceKind kind, Square from, SquareSet occupied) {
  switch (kind) {
    case bishopKind:
      return slide<0, firstStraightRay>(from, occupied);
    case rookKind:
      return slide<firstStraightRay, rayCount>(from, occupied);
    case queenKind:
      return slide<0, rayCount>(from, occupied);
    default:
      return attackSet[kind][from];
  }
}

}  // namespace quorvane

#endif  // QUORVANE_BOARD_ATTACKS_H_

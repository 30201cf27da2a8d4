#ifndef QUORVANE_BOARD_REACH_TABLES_H_
#define QUORVANE_BOARD_REACH_TABLES_H_

#include <cstdint>

#include "board/mailbox.h"
#include "board/piece_classes.h"
#include "board/square_set.h"
#include "board/table.h"
#include "board/types.h"

namespace quorvane {

// The squares one step away, by square.
constexpr Table<SquareSet, squareCount> stepsAlong(const std::int32_t* directionList) {
  Table<SquareSet, squareCount> table{};
  for (Square square = 0; square < squareCount; ++square) {
    for (const std::int32_t* direction = directionList; *direction != noSquare; ++direction) {
      const Square to = stepFrom(square, *direction);
      if (to != noSquare) table[square] |= setOf(to);
    }
  }
  return table;
}

// The rays of a queen, in the order of its directions: those of a bishop, then those of a rook.
inline constexpr std::int32_t rayCount = 8;
inline constexpr std::int32_t firstStraightRay = 4;

// The squares of a ray up to the edge of the board, by square and ray.
inline constexpr auto raySets = [] {
  Table<Table<SquareSet, rayCount>, squareCount> table{};
  for (Square square = 0; square < squareCount; ++square) {
    for (std::int32_t ray = 0; ray < rayCount; ++ray) {
      for (Square to = stepFrom(square, directions::queen[ray]); to != noSquare;
           to = stepFrom(to, directions::queen[ray])) {
        table[square][ray] |= setOf(to);
      }
    }
  }
  return table;
}();
static_assert(raySets[0][1] == 0x8040201008040200);

// The squares that a piece of the kind attacks on an empty board, by kind and square; for pawns, those of
// either side. A piece can only ever take on one of these.
inline constexpr auto attackSet = [] {
  Table<Table<SquareSet, squareCount>, pieceKindCount> table{};
  table[pawnKind] = stepsAlong(directions::bishop);
  table[knightKind] = stepsAlong(directions::knight);
  table[kingKind] = stepsAlong(directions::king);
  for (Square square = 0; square < squareCount; ++square) {
    for (std::int32_t ray = 0; ray < rayCount; ++ray)
      table[ray < firstStraightRay ? bishopKind : rookKind][square] |= raySets[square][ray];
    table[queenKind][square] = table[bishopKind][square] | table[rookKind][square];
  }
  return table;
}();

// The squares from which a piece of the kind can come to a square on any board at all, by kind and square:
// those of attackSet, and what a pawn steps and a king castles over.
inline constexpr auto originSet = [] {
  constexpr std::int32_t pawnSteps[] = {-2 * mailboxWidth, -mailboxWidth, mailboxWidth, 2 * mailboxWidth,
                                        noSquare};
  constexpr std::int32_t castlingSteps[] = {-2, 2, noSquare};
  Table<Table<SquareSet, squareCount>, pieceKindCount> table = attackSet;
  const auto pawnOrigins = stepsAlong(pawnSteps);
  const auto castlingOrigins = stepsAlong(castlingSteps);
  for (Square square = 0; square < squareCount; ++square) {
    table[pawnKind][square] |= pawnOrigins[square];
    table[kingKind][square] |= castlingOrigins[square];
  }
  return table;
}();

}  // namespace quorvane

#endif  // QUORVANE_BOARD_REACH_TABLES_H_

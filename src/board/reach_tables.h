#ifndef QUORVANE_BOARD_REACH_TABLES_H_
#define QUORVANE_BOARD_REACH_TABLES_H_

#include <cstdint>

#include "board/mailbox.h"
#include "board/piece_classes.h"
#include "board/square_set.h"
#include "board/table.h"
#include "board/types.h"

namespace quorvane {

// Some squares in order; iterates like a container.
template <std::int32_t capacity>
struct SquareRow {
  std::uint8_t length = 0;
  std::uint8_t squares[capacity] = {};

  constexpr void add(Square square) { squares[length++] = static_cast<std::uint8_t>(square); }
  constexpr const std::uint8_t* begin() const { return squares; }
  constexpr const std::uint8_t* end() const { return squares + length; }
};

// The squares one step away, in the order of the direction list.
using StepRow = SquareRow<8>;

constexpr Table<StepRow, squareCount> stepsAlong(const std::int32_t* directionList) {
  Table<StepRow, squareCount> table{};
  for (Square square = 0; square < squareCount; ++square) {
    for (const std::int32_t* direction = directionList; *direction != noSquare; ++direction) {
      const Square to = stepFrom(square, *direction);
      if (to != noSquare) table[square].add(to);
    }
  }
  return table;
}

inline constexpr auto knightSteps = stepsAlong(directions::knight);
inline constexpr auto kingSteps = stepsAlong(directions::king);

// The squares of a ray up to the edge of the board, the nearest first.
using Ray = SquareRow<7>;
// The rays of a queen, in the order of its directions: those of a bishop, then those of a rook.
inline constexpr std::int32_t rayCount = 8;
inline constexpr std::int32_t firstStraightRay = 4;

inline constexpr auto raysFrom = [] {
  Table<Table<Ray, rayCount>, squareCount> table{};
  for (Square square = 0; square < squareCount; ++square) {
    for (std::int32_t ray = 0; ray < rayCount; ++ray) {
      for (Square to = stepFrom(square, directions::queen[ray]); to != noSquare;
           to = stepFrom(to, directions::queen[ray])) {
        table[square][ray].add(to);
      }
    }
  }
  return table;
}();

static_assert(knightSteps[0].length == 2 && kingSteps[0].length == 3 && raysFrom[0][1].squares[6] == 63);

// The squares that a piece of the kind attacks on an empty board, by kind and square; for pawns, those of
// either side. A piece can only ever take on one of these.
inline constexpr auto attackSet = [] {
  Table<Table<SquareSet, squareCount>, pieceKindCount> table{};
  for (Square square = 0; square < squareCount; ++square) {
    for (const std::uint8_t to : knightSteps[square]) table[knightKind][square] |= setOf(to);
    for (const std::uint8_t to : kingSteps[square]) {
      table[kingKind][square] |= setOf(to);
      if (rankOf(to) != rankOf(square) && fileOf(to) != fileOf(square)) table[pawnKind][square] |= setOf(to);
    }
    for (std::int32_t ray = 0; ray < rayCount; ++ray) {
      const PieceKind slider = ray < firstStraightRay ? bishopKind : rookKind;
      for (const std::uint8_t to : raysFrom[square][ray]) table[slider][square] |= setOf(to);
    }
    table[queenKind][square] = table[bishopKind][square] | table[rookKind][square];
  }
  return table;
}();

// The squares from which a piece of the kind can come to a square on any board at all, by kind and square: those
// of attackSet, and what a pawn steps and a king castles over.
inline constexpr auto originSet = [] {
  Table<Table<SquareSet, squareCount>, pieceKindCount> table = attackSet;
  for (Square square = 0; square < squareCount; ++square) {
    for (const std::int32_t ranks : {-2, -1, 1, 2}) {
      const Square from = stepFrom(square, ranks * mailboxWidth);
      if (from != noSquare) table[pawnKind][square] |= setOf(from);
    }
    for (const std::int32_t files : {-2, 2}) {
      const Square from = stepFrom(square, files);
      if (from != noSquare) table[kingKind][square] |= setOf(from);
    }
  }
  return table;
}();

}  // namespace quorvane

#endif  // QUORVANE_BOARD_REACH_TABLES_H_

#ifndef QUORVANE_BOARD_SQUARE_SET_H_
#define QUORVANE_BOARD_SQUARE_SET_H_

#include <bit>
#include <cstdint>
#include <iterator>

#include "board/types.h"

namespace quorvane {

// A set of squares, one bit each: bit 0 is a1.
using SquareSet = std::uint64_t;
constexpr SquareSet setOf(Square square) {
  return SquareSet{1} << square;
}

// How many squares; adds up bits side by side, as std::popcount calls a function where the processor may lack
// the instruction.
constexpr std::int32_t countOf(SquareSet squares) {
  squares -= squares >> 1 & 0x5555555555555555;
  squares = (squares & 0x3333333333333333) + (squares >> 2 & 0x3333333333333333);
  squares = (squares + (squares >> 4)) & 0x0f0f0f0f0f0f0f0f;
  return static_cast<std::int32_t>(squares * 0x0101010101010101 >> 56);
}
constexpr bool holdsSeveral(SquareSet squares) {
  return (squares & (squares - 1)) != 0;
}

// The squares of a set, for a loop over them from a1 to h8.
class Squares {
 public:
  constexpr explicit Squares(SquareSet squares) : set(squares) {}

  class Iterator {
   public:
    constexpr explicit Iterator(SquareSet squares) : left(squares) {}

    constexpr Square operator*() const { return std::countr_zero(left); }
    constexpr Iterator& operator++() {
      left &= left - 1;
      return *this;
    }
    constexpr bool operator==(std::default_sentinel_t) const { return left == 0; }

   private:
    SquareSet left;
  };

  constexpr Iterator begin() const { return Iterator(set); }
  constexpr std::default_sentinel_t end() const { return {}; }

 private:
  SquareSet set;
};

}  // namespace quorvane

#endif  // QUORVANE_BOARD_SQUARE_SET_H_

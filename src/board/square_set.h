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

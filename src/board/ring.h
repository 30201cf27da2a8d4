#ifndef QUORVANE_BOARD_RING_H_
#define QUORVANE_BOARD_RING_H_

#include <cassert>
#include <iterator>

#include "board/piece.h"

namespace quorvane {

// The pieces of a side, for a loop over them: the king first, then by rising ids.
class Ring {
 public:
  explicit Ring(Piece* anchor) : king(anchor) { assert(king->kind == kingKind); }

  class Iterator {
   public:
    explicit Iterator(Piece* anchor) : king(anchor), piece(anchor) {}

    Piece& operator*() const { return *piece; }
    Iterator& operator++() {
      piece = piece->next;
      atStart = false;
      return *this;
    }
    bool operator==(std::default_sentinel_t) const { return piece == king && !atStart; }

   private:
    const Piece* king;
    Piece* piece;
    bool atStart = true;
  };

  Iterator begin() const { return Iterator(king); }
  std::default_sentinel_t end() const { return {}; }

 private:
  Piece* king;
};

}  // namespace quorvane

#endif  // QUORVANE_BOARD_RING_H_

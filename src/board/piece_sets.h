#ifndef QUORVANE_BOARD_PIECE_SETS_H_
#define QUORVANE_BOARD_PIECE_SETS_H_

#include <bit>

#include "board/square_set.h"
#include "board/table.h"
#include "board/types.h"

namespace quorvane {

// Where the pieces of one side stand, by PieceKind.
using SideSets = Table<SquareSet, pieceKindCount>;

// The pieces of a position as sets of squares, by Side: no square is in two of them, and each side has one
// king.
struct PieceSets : Table<SideSets, 2> {
  SquareSet ofSide(Side side) const {
    SquareSet all = 0;
    for (const SquareSet squares : (*this)[side]) all |= squares;
    return all;
  }
  Square king(Side side) const { return std::countr_zero((*this)[side][kingKind]); }
};

}  // namespace quorvane

#endif  // QUORVANE_BOARD_PIECE_SETS_H_

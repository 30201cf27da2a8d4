#ifndef QUORVANE_EVALUATOR_PIECE_SETS_H_
#define QUORVANE_EVALUATOR_PIECE_SETS_H_

#include <bit>
#include <cstdint>

#include "board/square_set.h"
#include "board/table.h"
#include "board/types.h"
#include "configurations/position_type.h"

namespace quorvane::evaluator {

// A position as sets of squares, one for each side and kind of piece. Whoever fills it sees to it that each side has
// one king and at most piecesPerSide pieces, that no square is taken twice and no pawn stands on its last rank.
struct PieceSets {
  Table<Table<SquareSet, pieceKindCount>, 2> squares{};  // by Side and PieceKind
  Side sideToMove = white;
  Table<bool, 2> castled{};  // has the side castled earlier in the game?

  SquareSet ofSide(Side side) const {
    SquareSet all = 0;
    for (const SquareSet set : squares[side]) all |= set;
    return all;
  }
  PieceCounts counts(Side side) const {
    PieceCounts counted;
    for (std::int32_t kind = 0; kind < pieceKindCount; ++kind)
      counted[kind] = std::popcount(squares[side][kind]);
    return counted;
  }
  PositionType type() const { return positionTypeOf(counts(white), counts(black)); }
  Square king(Side side) const { return std::countr_zero(squares[side][kingKind]); }
};

}  // namespace quorvane::evaluator

#endif  // QUORVANE_EVALUATOR_PIECE_SETS_H_

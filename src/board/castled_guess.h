#ifndef QUORVANE_BOARD_CASTLED_GUESS_H_
#define QUORVANE_BOARD_CASTLED_GUESS_H_

#include "board/piece_sets.h"

namespace quorvane {

// Does a side look as if it had castled earlier in the game, which its pieces alone do not tell? Its king
// stands where castling puts it, a rook beside it towards the centre, and none on the corner of that wing.
inline bool looksCastled(const PieceSets& pieces, Side side) {
  const Square king = pieces.king(side);
  if (relativeRank(side, rankOf(king)) != 0) return false;
  constexpr std::int32_t queenSideKing = 2;
  constexpr std::int32_t kingSideKing = 6;
  const std::int32_t file = fileOf(king);
  if (file != queenSideKing && file != kingSideKing) return false;
  const bool kingSide = file == kingSideKing;
  const SquareSet rooks = pieces[side][rookKind];
  const SquareSet beside = setOf(squareAt(rankOf(king), kingSide ? 5 : 3));
  const SquareSet corner = setOf(squareAt(rankOf(king), kingSide ? 7 : 0));
  return (rooks & beside) != 0 && (rooks & corner) == 0;
}

}  // namespace quorvane

#endif  // QUORVANE_BOARD_CASTLED_GUESS_H_

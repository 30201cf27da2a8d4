#include "evaluator/given_position.h"

namespace quorvane::evaluator {

static_assert(int{QUORVANE_BLACK} == black && int{QUORVANE_WHITE} == white);
static_assert(int{QUORVANE_WHITE_PAWN} == pawnKind && int{QUORVANE_WHITE_KNIGHT} == knightKind &&
              int{QUORVANE_WHITE_BISHOP} == bishopKind && int{QUORVANE_WHITE_ROOK} == rookKind &&
              int{QUORVANE_WHITE_QUEEN} == queenKind && int{QUORVANE_WHITE_KING} == kingKind);
static_assert(int{QUORVANE_MAX_PIECES} == 2 * piecesPerSide);
// Programs that were built with the header, and the Python module, rely on it.
static_assert(sizeof(quorvane_position) == 72 && alignof(quorvane_position) == 4);
static_assert(sizeof(quorvane_explanation) == 528);

quorvane_status readPosition(const quorvane_position& position, PositionSets& sets) {
  if (position.count < 0 || position.count > QUORVANE_MAX_PIECES) return QUORVANE_PIECE_COUNT;
  if (position.side_to_move > QUORVANE_WHITE) return QUORVANE_SIDE_UNKNOWN;
  PositionSets read;
  SquareSet taken = 0;
  for (std::int32_t i = 0; i < position.count; ++i) {
    const std::int32_t piece = position.pieces[i].piece;
    const Side side = piece < QUORVANE_BLACK_PAWN ? white : black;
    const std::int32_t kind = side == white ? piece : piece - QUORVANE_BLACK_PAWN;
    if (kind >= pieceKindCount) return QUORVANE_PIECE_UNKNOWN;
    const Square square = position.pieces[i].square;
    if (square >= squareCount) return QUORVANE_SQUARE_RANGE;
    if ((taken & setOf(square)) != 0) return QUORVANE_SQUARE_TAKEN;
    taken |= setOf(square);
    read.pieces[side][kind] |= setOf(square);
    if (kind == pawnKind && relativeRank(side, rankOf(square)) == 7) return QUORVANE_PAWN_ON_LAST_RANK;
  }
  for (const Side side : {black, white}) {
    if (countOf(read.pieces[side][kingKind]) != 1) return QUORVANE_KING_COUNT;
    if (countOf(read.pieces.ofSide(side)) > piecesPerSide) return QUORVANE_PIECE_COUNT;
  }
  read.sideToMove = position.side_to_move;
  read.castled[white] = position.white_castled != 0;
  read.castled[black] = position.black_castled != 0;
  sets = read;
  return QUORVANE_OK;
}

}  // namespace quorvane::evaluator

#include "play/search/exchange.h"

#include <algorithm>

namespace quorvane::play {

namespace {

PieceKind leastOf(const SideSets& pieces, SquareSet among) {
  std::int32_t kind = pawnKind;
  while ((pieces[kind] & among) == 0) ++kind;
  return static_cast<PieceKind>(kind);
}

}  // namespace

std::int32_t exchangeGain(const Position& position, Move move) {
  const auto kind = static_cast<MoveKind>(move.kind);
  SquareSet left = position.occupied() ^ setOf(move.from);
  PieceKind standing = position.kindAt(move.from);
  Table<std::int32_t, 2 * piecesPerSide + 1> gains;
  gains[0] = exchangeWorth(position.kindAt(move.to));
  if (kind == enPassantCapture) {
    gains[0] = exchangeWorth(pawnKind);
    left ^= setOf(squareAt(rankOf(move.from), fileOf(move.to)));
  }
  if (move.promotes()) {
    standing = promotedKind(kind);
    gains[0] += exchangeWorth(standing) - exchangeWorth(pawnKind);
  }
  std::int32_t last = 0;
  for (Side side = opponent(position.sideToMove);; side = opponent(side)) {
    const SquareSet attackers = position.attackers(side, move.to, left) & left;
    if (attackers == 0) break;
    const PieceKind taking = leastOf(position.pieces[side], attackers);
    if (taking == kingKind && (position.attackers(opponent(side), move.to, left) & left) != 0) break;
    ++last;
    gains[last] = exchangeWorth(standing) - gains[last - 1];
    standing = taking;
    const SquareSet own = position.pieces[side][taking] & attackers;
    left ^= own & (~own + 1);
  }
  for (; last > 0; --last) gains[last - 1] = std::min(gains[last - 1], -gains[last]);
  return gains[0];
}

}  // namespace quorvane::play

#include "play/search/move_order.h"

#include <algorithm>
#include <cstdlib>

#include "play/search/exchange.h"

namespace quorvane::play {

void QuietMoves::fade() {
  for (auto& ofSide : history) {
    for (auto& fromSquare : ofSide) {
      for (std::int16_t& toSquare : fromSquare) toSquare = static_cast<std::int16_t>(toSquare / 2);
    }
  }
}

void QuietMoves::reward(Side side, Move move, const MoveList& triedBefore, std::int32_t depth) {
  const std::int32_t bonus = std::min(32 * depth * depth, 2000);
  change(side, move, bonus);
  for (const Move failed : triedBefore) change(side, failed, -bonus);
}

// The nearer to the limit, the less it moves there.
void QuietMoves::change(Side side, Move move, std::int32_t by) {
  std::int16_t& entry = history[side][move.from][move.to];
  entry = static_cast<std::int16_t>(entry + by - entry * std::abs(by) / limit);
}

OrderedMoves::OrderedMoves(const Position& searched, Move remembered, const QuietMoves& quietMoves,
                           bool forcing, std::uint32_t devices)
    : position(searched) {
  generateMoves(position, forcing && !position.inCheck(), moves);
  left = moves.size();
  for (std::int32_t i = 0; i < left; ++i) {
    promises[i] = promiseOf(moves[i], remembered, quietMoves, devices);
    places[i] = static_cast<std::uint16_t>(i);
  }
}

std::int32_t OrderedMoves::promiseOf(Move move, Move remembered, const QuietMoves& quietMoves,
                                     std::uint32_t devices) const {
  constexpr std::int32_t step = 1 << 20;  // more than anything inside of a group
  if (move == remembered) return 4 * step;
  if (position.takes(move) || move.kind == promoteToQueen) {
    const PieceKind taking = position.kindAt(move.from);
    const PieceKind taken = move.kind == enPassantCapture ? pawnKind : position.kindAt(move.to);
    const std::int32_t gain = 16 * exchangeWorth(taken) - taking + (move.promotes() ? 16 * 800 : 0);
    // Whoever takes what is worth more loses nothing.
    const bool mayLose =
        (devices & staticExchanges) != 0 && (exchangeWorth(taking) > exchangeWorth(taken) || move.promotes());
    return (mayLose && exchangeGain(position, move) < 0 ? -3 * step : 2 * step) + gain;
  }
  if (move.promotes()) return -2 * step;
  return (devices & moveHistory) != 0 ? quietMoves.historyOf(position.sideToMove, move) : 0;
}

Move OrderedMoves::next() {
  while (left > 0) {
    std::int32_t best = 0;
    for (std::int32_t i = 1; i < left; ++i) {
      if (promises[places[i]] > promises[places[best]]) best = i;
    }
    const std::uint16_t place = places[best];
    // The others keep their order.
    for (std::int32_t i = best + 1; i < left; ++i) places[i - 1] = places[i];
    --left;
    lastPromise = promises[place];
    if (position.isLegal(moves[place])) return moves[place];
  }
  return {};
}

}  // namespace quorvane::play

#ifndef QUORVANE_PLAY_SEARCH_EXCHANGE_H_
#define QUORVANE_PLAY_SEARCH_EXCHANGE_H_

#include <cstdint>

#include "board/piece_classes.h"
#include "play/position/position.h"

namespace quorvane::play {

// What a piece counts in exchanges, in hundredths of a pawn; nothing pays for a king.
constexpr std::int32_t exchangeWorth(PieceKind kind) {
  constexpr Table<std::int32_t, pieceKindCount + 1> worth = {
      {whitePawnClass.material / 10, knightClass.material / 10, bishopClass.material / 10,
       rookClass.material / 10, queenClass.material / 10, 10000, 0}};
  return worth[kind];
}

// What a move wins by itself if both sides go on taking on its square with the least piece first, and either
// stops when it likes; pins apart. The swap algorithm, as the Chess Programming Wiki has it under "Static
// Exchange Evaluation".
std::int32_t exchangeGain(const Position& position, Move move);

}  // namespace quorvane::play

#endif  // QUORVANE_PLAY_SEARCH_EXCHANGE_H_

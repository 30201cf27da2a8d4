#ifndef QUORVANE_BOARD_DECODED_MOVE_H_
#define QUORVANE_BOARD_DECODED_MOVE_H_

#include <cstdint>

#include "board/types.h"

namespace quorvane {

// What leaves something of a decoded move open.
inline constexpr std::int32_t anyRankOrFile = 8;
inline constexpr std::int32_t noPromotion = 6;

// A move as a game's text gives it, which need not say all that tells it from others.
struct DecodedMove {
  std::int32_t fromRank = anyRankOrFile;  // 0 to 7, as the other three
  std::int32_t fromFile = anyRankOrFile;
  std::int32_t toRank = anyRankOrFile;
  std::int32_t toFile = anyRankOrFile;
  PieceKind kind = pawnKind;             // of the piece that moves
  std::int32_t promotion = noPromotion;  // a PieceKind; knightKind to queenKind promote
};

}  // namespace quorvane

#endif  // QUORVANE_BOARD_DECODED_MOVE_H_

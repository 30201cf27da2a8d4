#include "board/piece.h"
#include "board/reach_tables.h"
#include "configurations/configuration_word.h"
#include "configurations/place_bits.h"
#include "configurations/relation_bits.h"

namespace quorvane {

void King::addConfiguration() {
  std::int32_t freeCount = 0;
  std::int32_t pawnCount = 0;
  for (const std::uint8_t neighbour : kingSteps[square]) {
    Piece& piece = *board[neighbour];
    if (piece.kind == emptyKind) {
      ++freeCount;
      *ownKingReach |= setOf(neighbour);
    } else if (piece.side == side) {
      piece.configuration |= guardedBy(kingKind);
      if (piece.kind == pawnKind) ++pawnCount;
    } else {
      piece.configuration |= attackedBy(kingKind);
    }
  }
  configuration |= neighbourBits(freeCount, pawnCount) | placeBits(kingKind, side, square);
  if (castled) configuration |= king_bits::castled;
}

}  // namespace quorvane

#ifndef QUORVANE_BOARD_PAWN_FILES_H_
#define QUORVANE_BOARD_PAWN_FILES_H_

#include <cstdint>

#include "board/square_set.h"

namespace quorvane {

// The files on which a side has pawns, bit file + 1 each. Bits 0 and 9 stay 0: nobody stands beyond the
// edges.
using PawnFiles = std::uint32_t;

constexpr PawnFiles filesOf(SquareSet pawns) {
  pawns |= pawns >> 32;
  pawns |= pawns >> 16;
  pawns |= pawns >> 8;
  return static_cast<PawnFiles>(pawns & 0xff) << 1;
}

}  // namespace quorvane

#endif  // QUORVANE_BOARD_PAWN_FILES_H_

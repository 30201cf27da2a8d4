#ifndef QUORVANE_BOARD_KIND_NAME_H_
#define QUORVANE_BOARD_KIND_NAME_H_

#include <cstdint>

#include "board/table.h"
#include "board/types.h"

namespace quorvane {

// "pawn" to "king", for the kinds that stand on a board.
constexpr const char* kindName(std::int32_t kind) {
  constexpr Table<const char*, pieceKindCount> names = {
      {"pawn", "knight", "bishop", "rook", "queen", "king"}};
  return names[kind];
}

}  // namespace quorvane

#endif  // QUORVANE_BOARD_KIND_NAME_H_

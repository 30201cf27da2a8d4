#ifndef QUORVANE_BOARD_SQUARE_NAME_H_
#define QUORVANE_BOARD_SQUARE_NAME_H_

#include <cassert>
#include <string>

#include "board/types.h"

namespace quorvane {

// "a1" to "h8".
inline std::string squareName(Square square) {
  assert(square >= 0 && square < squareCount);
  return {static_cast<char>('a' + fileOf(square)), static_cast<char>('1' + rankOf(square))};
}

}  // namespace quorvane

#endif  // QUORVANE_BOARD_SQUARE_NAME_H_

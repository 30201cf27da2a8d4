#ifndef QUORVANE_TESTS_SUPPORT_BOARD_LAWS_H_
#define QUORVANE_TESTS_SUPPORT_BOARD_LAWS_H_

#include <cstdint>
#include <vector>

#include "board/board.h"

namespace quorvane {

// What holds of every position, however it came about. A law that is broken is told in words; nullptr tells
// that none is.
class BoardLaws : public Board {
 public:
  // Rings, ids and squares fit each other.
  static const char* brokenByPieces();
  // Generators, testMove and isAttacked agree, for the pieces of the side to move.
  static const char* brokenByMoves();

  // All that taking a move back restores, and that a refused move leaves alone.
  static std::vector<std::uint64_t> state();

 private:
  static const char* brokenByMovesOf(Piece& piece);
};

}  // namespace quorvane

#endif  // QUORVANE_TESTS_SUPPORT_BOARD_LAWS_H_

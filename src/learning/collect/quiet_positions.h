#ifndef QUORVANE_LEARNING_COLLECT_QUIET_POSITIONS_H_
#define QUORVANE_LEARNING_COLLECT_QUIET_POSITIONS_H_

#include <cstdint>
#include <functional>

#include "board/board.h"
#include "pgn/pgn_game.h"

namespace quorvane {

// The positions of a game that become samples.
class QuietPositions : public Board {
 public:
  // Called with such a position on the board, which it must leave there unchanged; `target` is as the side to
  // move sees it.
  using Visit = std::function<void(std::int32_t target)>;

  static constexpr std::int32_t shortestGame = 11;  // plies

  // Replays the game, rewound, and visits its quiet positions from the last one back. `result` is the game's,
  // not noResult. A game that is too short or holds a move that cannot be played has none; false for the
  // latter.
  static bool forEach(PgnGame& game, std::int32_t result, const Visit& visit);
};

}  // namespace quorvane

#endif  // QUORVANE_LEARNING_COLLECT_QUIET_POSITIONS_H_

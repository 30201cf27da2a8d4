#ifndef QUORVANE_INSPECT_GAMES_GAME_VERDICT_H_
#define QUORVANE_INSPECT_GAMES_GAME_VERDICT_H_

#include <cstdint>
#include <string>

#include "inspect/games/oddity.h"
#include "learning/collect/quiet_positions.h"
#include "pgn/pgn_game.h"

namespace quorvane::inspect {

// Which samples a game gave, and why none or not all of them.
struct GameVerdict {
  std::int32_t result = noResult;
  std::size_t samples = 0;
  Oddity oddity = Oddity::none;  // always another if there are no samples
  // Where the oddity is a token's: the token, and the ply that it stands for, from 1. Otherwise the token is
  // empty, and the ply the last that was played; 0 for a game without a result.
  std::string token;
  std::int32_t ply = 0;

  bool hasResult() const { return result != noResult; }
};

// Visits the quiet positions of a game as the utility does, and tells what came of it. The visits see the
// board.
GameVerdict judgeGame(PgnGame& game, const QuietPositions::Visit& visit);

}  // namespace quorvane::inspect

#endif  // QUORVANE_INSPECT_GAMES_GAME_VERDICT_H_

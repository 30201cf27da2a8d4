#include "inspect/report/game_trails.h"

#include <algorithm>

#include "inspect/common/game_files.h"
#include "inspect/position/position.h"

namespace quorvane::inspect {

namespace {

class TrailFollower : public Position {
 public:
  static GameTrail follow(const std::string& file, std::int32_t number, PgnGame& game,
                          const NetworkTable& table) {
    GameTrail trail{file,
                    number,
                    tagValue(game, "White"),
                    tagValue(game, "Black"),
                    tagValue(game, "Event"),
                    tagValue(game, "Date"),
                    game.result(),
                    {}};
    setupPosition(game.placement, game.sideToMove);
    const auto addStep = [&](std::string_view token, Square from, Square to) {
      trail.steps.push_back({std::string(token), from, to, explainPosition(table, {})});
    };
    addStep({}, noSquare, noSquare);
    for (DecodedMove move; game.nextMove(move) && playGameMove(move);) {
      const UndoRecord& made = history->record(history->depth);
      addStep(game.tokens[static_cast<std::size_t>(game.tokenCursor - 1)], made.fromSquare, made.toSquare);
    }
    return trail;
  }
};

}  // namespace

std::vector<GameTrail> followGames(const std::vector<std::string>& files,
                                   const std::vector<std::uint32_t>& games, const NetworkTable& table) {
  const TrailFollower follower;
  std::vector<GameTrail> trails(games.size());
  std::uint32_t next = 0;
  for (const std::string& file : files) {
    PgnDatabase database = loadGames(file);
    PgnGame* game;
    for (std::int32_t number = 1; (game = database.game(number - 1)) != nullptr; ++number) {
      if (game->result() == noResult) continue;
      const auto wanted = std::ranges::find(games, next++) - games.begin();
      if (wanted == std::ssize(games)) continue;
      trails[static_cast<std::size_t>(wanted)] = follower.follow(file, number, *game, table);
    }
  }
  std::erase_if(trails, [](const GameTrail& trail) { return trail.steps.empty(); });
  return trails;
}

}  // namespace quorvane::inspect

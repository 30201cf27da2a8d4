#include "inspect/report/game_trails.h"

#include <algorithm>
#include <map>
#include <utility>

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
    trail.steps.push_back({{}, noSquare, noSquare, explainPosition(table, {})});
    for (DecodedMove move; game.nextMove(move) && playGameMove(move);) {
      const UndoRecord& made = history->record(history->depth);
      const std::string_view token = game.tokens[static_cast<std::size_t>(game.tokenCursor - 1)];
      trail.steps.push_back({std::string(token), made.fromSquare, made.toSquare, explainPosition(table, {})});
    }
    return trail;
  }
};

}  // namespace

std::vector<GameTrail> followGames(const std::vector<std::string>& files,
                                   const std::vector<std::uint32_t>& games, const NetworkTable& table) {
  const TrailFollower follower;
  std::map<std::uint32_t, GameTrail> trails;
  std::uint32_t next = 0;
  for (const std::string& file : files) {
    PgnDatabase database = loadGames(file);
    PgnGame* game;
    for (std::int32_t index = 0; (game = database.game(index)) != nullptr; ++index) {
      if (game->result() == noResult) continue;
      if (std::ranges::count(games, next) != 0)
        trails.emplace(next, follower.follow(file, index + 1, *game, table));
      ++next;
    }
  }
  std::vector<GameTrail> inOrder;
  for (const std::uint32_t game : games) {
    if (trails.contains(game)) inOrder.push_back(std::move(trails.at(game)));
  }
  return inOrder;
}

}  // namespace quorvane::inspect

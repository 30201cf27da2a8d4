#include "inspect/games/game_report.h"

#include "inspect/common/game_files.h"
#include "inspect/position/position.h"

namespace quorvane::inspect {

FileReport reportGames(const std::string& file, const ShowProgress& showProgress) {
  const Position board;
  PgnDatabase database = loadAnyGames(file);
  FileReport report{file, {}, {}};
  const std::int32_t count = gameCount(database);
  for (std::int32_t index = 0; index < count; ++index) {
    PgnGame& game = *database.game(index);
    const GameVerdict verdict = judgeGame(game, [](std::int32_t) {});
    report.tally.add(verdict);
    if (verdict.oddity != Oddity::none) {
      report.odd.push_back({index + 1, tagValue(game, "White"), tagValue(game, "Black"), verdict});
    }
    showProgress(file, index + 1, count);
  }
  return report;
}

}  // namespace quorvane::inspect

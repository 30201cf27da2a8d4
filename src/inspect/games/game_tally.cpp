#include "inspect/games/game_tally.h"

#include "inspect/position/position.h"

namespace quorvane::inspect {

void GameTally::add(const GameVerdict& verdict) {
  ++games;
  samples += verdict.samples;
  if (verdict.hasResult()) ++withResult;
  if (verdict.samples != 0) ++withSamples;
  if (verdict.oddity != Oddity::none) ++(verdict.samples != 0 ? partly : withoutSamples)[verdict.oddity];
}

JudgedFile judgeFile(const std::string& file, const ShowProgress& showProgress) {
  const Position board;
  PgnDatabase games = loadAnyGames(file);
  JudgedFile judged{file, {}, {}};
  forEachGame(games, file, showProgress, [&](std::int32_t number, PgnGame& game) {
    const GameVerdict verdict = judgeGame(game, [](std::int32_t) {});
    judged.tally.add(verdict);
    if (verdict.oddity != Oddity::none)
      judged.odd.push_back({number, tagValue(game, "White"), tagValue(game, "Black"), verdict});
  });
  return judged;
}

}  // namespace quorvane::inspect

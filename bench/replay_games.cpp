// Loads game files and replays every game of them as far as its moves can be played:
//
//   replay_games FILE.pgn ...

#include <cstdio>

#include "bench/bench_learner.h"

int main(int argc, char** argv) {
  using namespace quorvane;
  PgnDatabase database;
  for (int file = 1; file < argc; ++file) database.load(argv[file]);
  const double loaded = cpuSeconds();

  const QuietOutput quiet;
  const BenchLearner learner;  // owns the board
  std::int32_t games = 0;
  std::int32_t refused = 0;
  std::int64_t plies = 0;
  while (PgnGame* const game = database.game(games)) {
    ++games;
    const std::int32_t played = BenchLearner::replay(*game);
    if (played < 0) ++refused;
    if (played > 0) plies += played;
  }
  std::printf("%d games, of which %d have a refused move; %.0f plies of the others\n", games, refused,
              static_cast<double>(plies));
  std::printf("load %.3f s, replay %.3f s of CPU time\n", loaded, cpuSeconds() - loaded);
  return 0;
}

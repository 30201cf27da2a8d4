#include "bench/bench_input.h"
#include "bench/bench_sizes.h"

namespace {

using namespace quorvane;

// Decodes and plays the moves of all games.
void BM_Replay(benchmark::State& state) {
  PgnDatabase& database = inputOf(state.range(0)).database;
  std::int64_t plies = 0;
  while (state.KeepRunning()) {
    plies = 0;
    std::int32_t index = 0;
    while (PgnGame* const game = database.game(index++)) {
      const std::int32_t played = BenchLearner::replay(*game);
      if (played < 0) state.SkipWithError("a move was refused");
      plies += played;
    }
  }
  state.counters["plies/s"] = perSecond(plies);
}
BENCHMARK(BM_Replay)->Apply(atAllSizes);

}  // namespace

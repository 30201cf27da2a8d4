#include "bench/bench_input.h"
#include "bench/bench_sizes.h"

namespace {

using namespace quorvane;

// Replays the games and stores their samples.
void BM_Collect(benchmark::State& state) {
  BenchInput& input = inputOf(state.range(0));
  const QuietOutput quiet;
  const std::size_t samples = input.learner.sampleCount();
  while (state.KeepRunning()) {
    input.learner.collectSamples(input.database);
    if (input.learner.sampleCount() != samples) state.SkipWithError("other samples than before");
  }
  state.counters["samples/s"] = perSecond(static_cast<std::int64_t>(samples));
}
BENCHMARK(BM_Collect)->Apply(atAllSizes);

}  // namespace

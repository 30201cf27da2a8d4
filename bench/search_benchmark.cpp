#include "bench/bench_input.h"
#include "bench/bench_sizes.h"

namespace {

using namespace quorvane;

// The patterns of one type.
void BM_Search(benchmark::State& state) {
  BenchLearner& learner = inputOf(state.range(0)).learner;
  const QuietOutput quiet;
  learner.use(static_cast<PositionType>(state.range(1)));
  const std::size_t nodes = nodeCount(learner.model().row());
  while (state.KeepRunning()) {
    learner.search();
    if (nodeCount(learner.model().row()) != nodes) state.SkipWithError("other patterns than before");
  }
  state.counters["samples"] = static_cast<double>(learner.set().size());
  state.counters["nodes"] = static_cast<double>(nodes);
}

void ofAllTypes(benchmark::internal::Benchmark* family) {
  family->ArgNames({"", "type"})->Unit(benchmark::kMillisecond);
  for (const int games : inputSizes) {
    for (PositionType type = firstLearnedType; type <= lastPositionType; ++type) family->Args({games, type});
  }
}
BENCHMARK(BM_Search)->Apply(ofAllTypes);

}  // namespace

#include <numeric>

#include "bench/bench_input.h"
#include "bench/bench_sizes.h"
#include "learning/fit/fit_system.h"

namespace {

using namespace quorvane;

// Its type in use is the one with the most samples.
BenchLearner& learnerOf(const benchmark::State& state) {
  BenchLearner& learner = inputOf(state.range(0)).learner;
  learner.use(learner.largestType());
  learner.model().clearWeights();
  return learner;
}

void countSamples(benchmark::State& state, const SampleSet& set) {
  const auto samples = static_cast<double>(set.size());
  state.counters["samples"] = samples;
  state.counters["s/sample"] = {samples,
                                benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert};
}

void BM_BuildFitSystem(benchmark::State& state) {
  BenchLearner& learner = learnerOf(state);
  while (state.KeepRunning()) {
    const FitSystem system(learner.set(), learner.model().row());
    if (system.sampleCount() != learner.set().size()) state.SkipWithError("samples are missing");
  }
  countSamples(state, learner.set());
}
BENCHMARK(BM_BuildFitSystem)->Apply(atAllSizes);

void BM_AccumulateCounts(benchmark::State& state) {
  BenchLearner& learner = learnerOf(state);
  const FitSystem system(learner.set(), learner.model().row());
  while (state.KeepRunning()) {
    const std::vector<double> squares = system.accumulateCounts();
    if (std::accumulate(squares.begin(), squares.end(), 0.0) == 0.0) state.SkipWithError("nothing fires");
  }
  countSamples(state, learner.set());
}
BENCHMARK(BM_AccumulateCounts)->Apply(atAllSizes);

void BM_FitStep(benchmark::State& state) {
  BenchLearner& learner = learnerOf(state);
  const QuietOutput quiet;
  FitSystem system(learner.set(), learner.model().row());
  const double first = learner.model().buildPreconditioner(system).objective();
  double last = first;
  while (state.KeepRunning()) last = learner.model().conjugateStep(system, false).objective();
  if (!(last < first)) state.SkipWithError("the objective has not fallen");
  countSamples(state, learner.set());
}
// As many steps as a fit takes.
BENCHMARK(BM_FitStep)->Apply(atAllSizes)->Iterations(50);

}  // namespace

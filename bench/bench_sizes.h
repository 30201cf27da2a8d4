#ifndef QUORVANE_BENCH_BENCH_SIZES_H_
#define QUORVANE_BENCH_BENCH_SIZES_H_

#include <benchmark/benchmark.h>

namespace quorvane {

// In games. What the largest needs does not fit into the caches near the processor.
inline constexpr int inputSizes[] = {250, 1000, 4000};

inline void atAllSizes(benchmark::internal::Benchmark* family) {
  for (const int games : inputSizes) family->Arg(games);
  family->Unit(benchmark::kMillisecond);
}

// `amount` is that of one iteration.
inline benchmark::Counter perSecond(std::int64_t amount) {
  return {static_cast<double>(amount), benchmark::Counter::kIsIterationInvariantRate};
}

}  // namespace quorvane

#endif  // QUORVANE_BENCH_BENCH_SIZES_H_

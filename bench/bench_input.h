#ifndef QUORVANE_BENCH_BENCH_INPUT_H_
#define QUORVANE_BENCH_BENCH_INPUT_H_

#include <string>

#include "bench/bench_learner.h"

namespace quorvane {

// The games of a file and what the phases make of them up to the patterns: their samples, and the patterns of
// all learned types in the network table. One at a time, as any Learner.
struct BenchInput {
  explicit BenchInput(const std::string& pgnFile);

  const std::string file;
  PgnDatabase database;
  BenchLearner learner;
};

// That of so many generated games, always the same ones, or of a file. Valid until another one is asked for.
// Prints nothing. The first call makes a folder that goes with the process the current one: no network.dat of
// the user's is read or written.
BenchInput& inputOf(std::int64_t games);
BenchInput& inputOf(const std::string& file);

}  // namespace quorvane

#endif  // QUORVANE_BENCH_BENCH_INPUT_H_

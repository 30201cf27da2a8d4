#ifndef QUORVANE_BENCH_BENCH_LEARNER_H_
#define QUORVANE_BENCH_BENCH_LEARNER_H_

#include <algorithm>
#include <cstdint>
#include <ctime>
#include <iostream>

#include "learning/learner.h"

namespace quorvane {

// Of this process since its start: on a machine that others use too, it says more than the clock.
inline double cpuSeconds() {
  return static_cast<double>(std::clock()) / CLOCKS_PER_SEC;
}

// Drops what is printed on std::cout while it lives.
struct QuietOutput {
  QuietOutput() : standard(std::cout.rdbuf(nullptr)) {}
  ~QuietOutput() { std::cout.rdbuf(standard); }
  std::streambuf* const standard;
};

// A Learner whose phases can be run piece by piece.
class BenchLearner : public Learner {
 public:
  // Plays a game to its last move. Gives the number of plies, or -1 if a move was refused.
  static std::int32_t replay(PgnGame& game) {
    setupPosition(game.placement, game.sideToMove);
    for (DecodedMove move; game.nextMove(move);) {
      if (!playGameMove(move)) return -1;
    }
    return history->depth;
  }

  // Selects the type that the calls below work on.
  using Learner::use;
  const SampleSet& set() const { return *currentSet; }
  void search() { searchPatterns(searchDepth); }
  Network& model() { return network; }

  const SampleSet& setOf(PositionType type) const { return sampleSets[type]; }
  // The learned type with the most samples.
  PositionType largestType() const {
    const auto fewer = [](const SampleSet& a, const SampleSet& b) { return a.size() < b.size(); };
    const SampleSet* const first = sampleSets.begin();
    const SampleSet* const largest = std::max_element(first + firstLearnedType, sampleSets.end(), fewer);
    return static_cast<PositionType>(largest - first);
  }
  std::size_t sampleCount() const {
    std::size_t count = 0;
    for (const SampleSet& ofType : sampleSets) count += ofType.size();
    return count;
  }
};

inline std::size_t nodeCount(const NetworkRow& row) {
  std::size_t count = 0;
  for (const NodeList& list : row) count += list.size();
  return count;
}

}  // namespace quorvane

#endif  // QUORVANE_BENCH_BENCH_LEARNER_H_

// Any bytes load as a file of games, and their games replay and are learned from, without a fault.

#include <cmath>

#include "fuzz/fuzz_target.h"
#include "learning/fit/fit_progress.h"
#include "learning/fit/fit_system.h"
#include "learning/learner.h"
#include "support/files.h"
#include "support/network_tables.h"

namespace quorvane {
namespace {

// Searches and fits the types that have a few samples: clearing the caches for all of them would take most of
// the time.
class QuickLearner : public Learner {
 public:
  void learn(PgnDatabase& database) {
    collectSamples(database);
    for (PositionType type = firstLearnedType; type <= lastPositionType; ++type) {
      if (sampleSets[type].empty() || sampleSets[type].size() > mostSamples) continue;
      use(type);
      searchPatterns(searchDepth);
      FitSystem system(*currentSet, network.row());
      FitProgress progress;
      fitWeights(system, progress);
      for (const PatternNode* node : system.nodes())
        require(std::isfinite(node->weight), "weights are finite");
    }
  }

 private:
  static constexpr std::size_t mostSamples = 100;
};

}  // namespace
}  // namespace quorvane

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace quorvane;
  enterScratchFolder();
  static QuickLearner learner;
  clearNetworkTable();
  writeFile("games.pgn", {reinterpret_cast<const char*>(data), size});
  PgnDatabase database;
  database.load("games.pgn");
  learner.learn(database);
  return 0;
}

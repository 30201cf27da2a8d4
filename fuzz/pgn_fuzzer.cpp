// Any bytes load as a file of games, and their games replay and are learned from, without a fault.

#include <cmath>

#include "fuzz/fuzz_target.h"
#include "learning/fit_system.h"
#include "learning/learner.h"

namespace quorvane {
namespace {

// Searches and fits the types that have a few samples: clearing the caches for all of them would take most of
// the time.
class QuickLearner : public Learner {
 public:
  void learn(PgnDatabase& database) {
    collectSamples(database);
    for (PositionType type = firstLearnedType; type <= lastPositionType; ++type) {
      currentSet = &sampleSets[type];
      if (currentSet->empty() || currentSet->size() > mostSamples) continue;
      network.classifyPosition(type, true);
      searchPatterns(2);
      FitSystem system(*currentSet, network.row());
      fitWeights(system);
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
  for (NetworkRow& row : networkTable) {
    for (NodeList& list : row) list.clear();
  }
  writeFile("games.pgn", {reinterpret_cast<const char*>(data), size});
  PgnDatabase database;
  database.load("games.pgn");
  learner.learn(database);
  return 0;
}

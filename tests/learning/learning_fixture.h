#ifndef QUORVANE_TESTS_LEARNING_LEARNING_FIXTURE_H_
#define QUORVANE_TESTS_LEARNING_LEARNING_FIXTURE_H_

#include <gtest/gtest.h>

#include <random>
#include <string>

#include "learning/learner.h"
#include "learning/sample_walk.h"
#include "support/captured_output.h"
#include "support/network_tables.h"
#include "support/temporary_folder.h"

namespace quorvane {

// Constructed before the Learner, which looks for network.dat and reports that there is none. The fits write
// one.
struct QuietStart {
  TemporaryFolder folder;
  CapturedOutput start;
};

// Sets what a node tells of its subtree, once that is behind it in the list.
inline void closeNode(NodeList& list, std::size_t index) {
  PatternNode& node = list[index];
  node.skip = static_cast<std::int32_t>(list.size() - index);
  for (std::size_t child = index + 1; child < list.size();
       child += static_cast<std::size_t>(list[child].skip))
    node.childBits |= list[child].mask & ~node.mask;
}

class LearningTest : public ::testing::Test, private QuietStart, public Learner {
 protected:
  void TearDown() override { clearNetworkTable(); }

  std::vector<std::int32_t> targets(PositionType type) {
    std::vector<std::int32_t> all;
    for (SampleWalk walk(sampleSets[type]); walk.next();) all.push_back(walk.target());
    return all;
  }

  // A set of samples like those of games: few kinds of words in many variations, so that words repeat, share
  // bits and meet in the evaluation caches. The same for a seed everywhere.
  void fillWithRandomSamples(SampleSet& set, std::size_t count, std::uint32_t seed) {
    std::mt19937 random(seed);
    const auto below = [&](std::uint32_t end) { return static_cast<std::uint32_t>(random()) % end; };
    const auto list = [&] {
      std::vector<PieceConfiguration> pieces(1 + below(12), {0, kingKind});
      for (PieceConfiguration& piece : std::span(pieces).subspan(1))
        piece.kind = static_cast<std::uint8_t>(below(5));
      for (PieceConfiguration& piece : pieces) {
        const ConfigurationWord base = 0x9241'8003U * (below(24) + 1);
        piece.word = base ^ (below(3) == 0 ? 0x0001'0001U << below(16) : 0U);
      }
      return pieces;
    };
    set.clear();
    std::vector<std::vector<PieceConfiguration>> own;
    std::vector<std::vector<PieceConfiguration>> opposing;
    for (std::uint32_t sample = 0; sample < count; ++sample) {
      // Openings come again: every fourth sample is one that was there before, but for its target.
      const std::uint32_t again = sample == 0 || below(4) != 0 ? sample : below(sample);
      own.push_back(again == sample ? list() : own[again]);
      opposing.push_back(again == sample ? list() : opposing[again]);
      set.append(own.back(), opposing.back(), static_cast<std::int32_t>(below(120)) - 60);
    }
  }

  static std::vector<Sample> copies(const SampleSet& set) {
    std::vector<Sample> all;
    for (SampleWalk walk(set); walk.next();) {
      all.push_back({{walk.ownList().begin(), walk.ownList().end()},
                     {walk.opposingList().begin(), walk.opposingList().end()},
                     walk.target()});
    }
    return all;
  }

  void search(PositionType type) {
    CapturedOutput quiet;
    use(type);
    searchPatterns(searchDepth);
  }
};

}  // namespace quorvane

#endif  // QUORVANE_TESTS_LEARNING_LEARNING_FIXTURE_H_

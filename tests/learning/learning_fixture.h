#ifndef QUORVANE_TESTS_LEARNING_LEARNING_FIXTURE_H_
#define QUORVANE_TESTS_LEARNING_LEARNING_FIXTURE_H_

#include <gtest/gtest.h>

#include <iostream>
#include <random>
#include <sstream>
#include <string>

#include "learning/learner.h"
#include "support/temporary_folder.h"

namespace quorvane {

// Catches what is printed on standard output while it lives.
class CapturedOutput {
 public:
  CapturedOutput() : standard(std::cout.rdbuf(text.rdbuf())) {}
  ~CapturedOutput() { std::cout.rdbuf(standard); }
  CapturedOutput(const CapturedOutput&) = delete;
  CapturedOutput& operator=(const CapturedOutput&) = delete;
  std::string str() const { return text.str(); }

 private:
  std::ostringstream text;
  std::streambuf* standard;
};

// Constructed before the Learner, which looks for network.dat and reports that there is none. The fits write
// one.
struct QuietStart {
  TemporaryFolder folder;
  CapturedOutput start;
};

class LearningTest : public ::testing::Test, private QuietStart, public Learner {
 protected:
  // The table outlives every Learner.
  void TearDown() override {
    for (NetworkRow& row : networkTable) row = {};
  }

  // A set of samples like those of games: few kinds of words in many variations, so that words repeat, share
  // bits and meet in the evaluation caches. The same for a seed everywhere.
  void fillWithRandomSamples(SampleSet& set, std::size_t count, std::uint32_t seed) {
    std::mt19937 random(seed);
    const auto below = [&](std::uint32_t end) { return static_cast<std::uint32_t>(random()) % end; };
    const auto list = [&] {
      std::vector<PieceConfiguration> pieces{{0, kingKind}};
      for (std::uint32_t piece = below(12); piece > 0; --piece)
        pieces.push_back({0, static_cast<std::uint8_t>(below(5))});
      for (PieceConfiguration& piece : pieces) {
        const ConfigurationWord base = 0x9241'8003U * (below(24) + 1);
        piece.word = base ^ (below(3) == 0 ? 0x0001'0001U << below(16) : 0U);
      }
      return pieces;
    };
    set.clear();
    for (std::size_t sample = 0; sample < count; ++sample) {
      set.append(list(), list(), static_cast<std::int32_t>(below(120)) - 60);
    }
  }

  void use(PositionType type) {
    currentSet = &sampleSets[type];
    network.classifyPosition(type, true);
  }

  void search(PositionType type) {
    CapturedOutput quiet;
    use(type);
    searchPatterns(2);
  }
};

}  // namespace quorvane

#endif  // QUORVANE_TESTS_LEARNING_LEARNING_FIXTURE_H_

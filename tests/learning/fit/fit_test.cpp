#include <algorithm>
#include <bit>
#include <cmath>

#include "learning/fit/fit_progress.h"
#include "learning/fit/fit_system.h"
#include "learning/fit/plain_fit.h"
#include "learning/learning_fixture.h"

namespace quorvane {
namespace {

class Fit : public LearningTest {
 protected:
  static constexpr PositionType type = 9;

  SampleSet& samples() { return sampleSets[type]; }

  void learnRandom(std::size_t count, std::uint32_t seed) {
    fillWithRandomSamples(samples(), count, seed);
    search(type);
  }

  std::vector<float> weights() {
    std::vector<float> all;
    for (const NodeList& list : network.row()) {
      for (const PatternNode& node : list) all.push_back(node.weight);
    }
    return all;
  }

  std::string runFit() {
    CapturedOutput output;
    FitProgress progress;
    FitSystem system(samples(), network.row());
    fitWeights(system, progress);
    progress.ends(network.conjugateStep(system, true));
    return output.str();
  }
};

TEST_F(Fit, GivesThePlainFitsWeightsAndFiguresBitForBit) {
  for (const auto& [count, seed] : {std::pair{40U, 1U}, {150U, 2U}, {400U, 3U}}) {
    learnRandom(count, seed);
    ASSERT_GT(weights().size(), 300U);
    const std::string output = runFit();
    const std::vector<float> fast = weights();

    PlainFit plain(copies(samples()), network);
    const std::vector<double> objectives = plain.fit();
    EXPECT_EQ(weights(), fast) << count << " samples";
    EXPECT_EQ(std::ranges::max(objectives), objectives.front());
    EXPECT_LT(objectives.back(), objectives.front());
    std::ostringstream expected;
    expected << "Weight fitting " << std::string(objectives.size() - 1, '.')
             << " done.\n\nHit percentage: " << plain.residuals().hitPercentage();
    const Residuals last = plain.residuals();
    expected << "%\n\nf(w)=" << last.objective() << "  Mean error: " << last.meanError() << "\n\n";
    EXPECT_TRUE(output.ends_with(expected.str())) << expected.str() << output;
  }
}

// The evaluation caches decide in the last bits: a word found in them counts rounded to 32 bits.
TEST_F(Fit, ResidualsAreThoseOfEvaluateToTheLastBit) {
  learnRandom(1500, 4);
  for (NodeList& list : network.row()) {
    for (PatternNode& node : list) node.weight = 1.0F / static_cast<float>(3 + node.mask % 1009);
  }
  FitSystem system(samples(), network.row());
  system.updateValues();
  PlainFit plain(copies(samples()), network);
  for (const FitSystem::Caches caches : {FitSystem::Caches::cleared, FitSystem::Caches::filledByPassBefore}) {
    const Residuals expected = plain.residuals();
    const Residuals fast = system.residuals(caches);
    EXPECT_EQ(std::bit_cast<std::uint64_t>(fast.squares), std::bit_cast<std::uint64_t>(expected.squares));
    EXPECT_EQ(std::bit_cast<std::uint64_t>(fast.absolutes), std::bit_cast<std::uint64_t>(expected.absolutes));
    EXPECT_EQ(fast.hits, expected.hits);
  }
}

TEST_F(Fit, PatternThatBothSidesShowEquallyKeepsWeightZero) {
  use(type);
  const std::vector<PieceConfiguration> list{{1, queenKind}};
  for (int i = 0; i < 20; ++i) samples().append(list, list, i < 19 ? 30 : 1);
  PatternNode& node = network.nodeAt(queenKind, network.appendNode(queenKind));
  node.mask = 1;
  node.skip = 1;
  EXPECT_EQ(runFit(),
            "Building preconditioner ... done.\n\nf(w)=855.05  Mean error: 28.55\nWeight fitting . "
            "done.\n\nHit percentage: 0%\n\nf(w)=855.05  Mean error: 28.55\n\n");
  EXPECT_EQ(weights(), std::vector<float>{0.0F});
}

TEST_F(Fit, EmptySetTakesOneStepAndHitsAll) {
  learnRandom(0, 0);
  EXPECT_EQ(runFit(),
            "Building preconditioner ... done.\n\nWeight fitting . done.\n\nHit percentage: 100%\n\n");
}

// Both fits, plain and fast, follow one set of formulas; this judges the formulas themselves. The normal
// equations: at the least f(w), the residuals stand at right angles to the net counts of every pattern. Here
// patterns of several kinds overlap, both sides have them, and targets are large, so that the tolerance of
// the fit is small against them.
TEST_F(Fit, SolvesTheNormalEquations) {
  std::mt19937 random(31);
  const auto list = [&] {
    std::vector<PieceConfiguration> pieces(1 + random() % 4);
    for (PieceConfiguration& piece : pieces) {
      piece = {static_cast<ConfigurationWord>(random() & 0x20011), static_cast<std::uint8_t>(random() % 3)};
    }
    return pieces;
  };
  for (int round = 0; round < 20; ++round) {
    samples().clear();
    for (int i = 0; i < 60; ++i)
      samples().append(list(), list(), static_cast<std::int32_t>(random() % 20001) - 10000);
    search(type);
    ASSERT_GT(weights().size(), 6U);
    runFit();
    for (std::int32_t kind = 0; kind < pieceKindCount; ++kind) {
      for (const PatternNode& node : network.row()[kind]) {
        const auto fires = [&](const PieceConfiguration& piece) {
          return piece.kind == kind && (piece.word & node.mask) == node.mask;
        };
        double product = 0.0;
        double countSquares = 0.0;
        double residualSquares = 0.0;
        for (const Sample& sample : copies(samples())) {
          const auto count = static_cast<double>(std::ranges::count_if(sample.ownList, fires) -
                                                 std::ranges::count_if(sample.opposingList, fires));
          const double residual = sample.target - network.evaluate(sample);
          product += count * residual;
          countSquares += count * count;
          residualSquares += residual * residual;
        }
        EXPECT_LE(product * product, 1e-5 * countSquares * residualSquares) << round << " " << node.mask;
      }
    }
  }
}

}  // namespace
}  // namespace quorvane

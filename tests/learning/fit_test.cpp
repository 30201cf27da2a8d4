#include <bit>
#include <cmath>
#include <limits>

#include "learning/fit_system.h"
#include "learning/learning_fixture.h"
#include "learning/ordered_sums.h"
#include "learning/plain_fit.h"
#include "learning/squared_counts.h"

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

  std::vector<PatternNode*> nodes() {
    std::vector<PatternNode*> all;
    for (NodeList& list : network.row()) {
      for (PatternNode& node : list) all.push_back(&node);
    }
    return all;
  }

  std::vector<float> weights() {
    std::vector<float> all;
    for (const PatternNode* node : nodes()) all.push_back(node->weight);
    return all;
  }

  // A list with a single pattern.
  void addPattern(PieceKind kind, ConfigurationWord mask) {
    PatternNode& node = network.nodeAt(kind, network.appendNode(kind));
    node.mask = mask;
    node.skip = 1;
  }

  std::string runFit() {
    CapturedOutput output;
    FitSystem system(samples(), network.row());
    fitWeights(system);
    network.conjugateStep(system, true);
    return output.str();
  }
};

TEST_F(Fit, GivesThePlainFitsWeightsAndFiguresBitForBit) {
  for (const auto& [count, seed] : {std::pair{40U, 1U}, {150U, 2U}, {400U, 3U}}) {
    learnRandom(count, seed);
    ASSERT_GT(nodes().size(), 300U);
    const std::string output = runFit();
    const std::vector<float> fast = weights();

    PlainFit plain(samples(), network);
    const std::vector<double> objectives = plain.fit();
    EXPECT_EQ(weights(), fast) << count << " samples";
    EXPECT_LE(objectives.back(), objectives.front());
    std::ostringstream expected;
    expected << "Weight fitting " << std::string(objectives.size() - 1, '.')
             << " done.\n\nHit percentage: " << plain.hitPercentage() << "%\n\nf(w)=" << plain.objective()
             << " ";
    EXPECT_NE(output.find(expected.str()), std::string::npos) << expected.str() << output;
  }
}

// The evaluation caches decide in the last bits: a word found in them counts rounded to 32 bits.
TEST_F(Fit, ResidualsAreThoseOfEvaluateToTheLastBit) {
  learnRandom(1500, 4);
  for (PatternNode* node : nodes()) node->weight = 1.0F / static_cast<float>(3 + node->mask % 1009);
  FitSystem system(samples(), network.row());
  system.updateValues();
  for (const FitSystem::Caches caches : {FitSystem::Caches::cleared, FitSystem::Caches::filledByPassBefore}) {
    FitSystem::Residuals plain;
    for (std::size_t i = 0; i < samples().size(); ++i) {
      plain.add(static_cast<double>(samples().view(i).target) - network.evaluate(samples().sample(i)));
    }
    const FitSystem::Residuals fast = system.residuals(caches);
    EXPECT_EQ(std::bit_cast<std::uint64_t>(fast.squares), std::bit_cast<std::uint64_t>(plain.squares));
    EXPECT_EQ(std::bit_cast<std::uint64_t>(fast.absolutes), std::bit_cast<std::uint64_t>(plain.absolutes));
    EXPECT_EQ(fast.hits, plain.hits);
  }
}

// Two patterns that overlap in one of three samples: the normal equations [2 1; 1 2] w = [12; 9] give w = (5,
// 2).
TEST_F(Fit, SolvesTheNormalEquationsOfATinyProblem) {
  samples().clear();
  use(type);
  for (std::int32_t kind = 0; kind < pieceKindCount; ++kind)
    network.clearNodeList(static_cast<PieceKind>(kind));
  const auto append = [&](ConfigurationWord own, std::int32_t target) {
    samples().append(std::vector<PieceConfiguration>{{own, rookKind}}, {}, target);
  };
  append(1, 5);
  append(2, 2);
  append(3, 7);
  addPattern(rookKind, 1);
  addPattern(rookKind, 2);
  runFit();
  EXPECT_NEAR(weights()[0], 5.0, 1e-3);
  EXPECT_NEAR(weights()[1], 2.0, 1e-3);
}

TEST_F(Fit, PatternThatBothSidesShowEquallyKeepsWeightZero) {
  samples().clear();
  use(type);
  for (std::int32_t kind = 0; kind < pieceKindCount; ++kind)
    network.clearNodeList(static_cast<PieceKind>(kind));
  const std::vector<PieceConfiguration> list{{1, queenKind}};
  for (int i = 0; i < 20; ++i) samples().append(list, list, 30);
  addPattern(queenKind, 1);
  const std::string output = runFit();
  EXPECT_EQ(weights(), std::vector<float>{0.0F});
  EXPECT_NE(output.find("f(w)=900  Mean error: 30\nWeight fitting . done.\n\nHit percentage: 0%\n\nf(w)=900"),
            std::string::npos)
      << output;
}

TEST_F(Fit, EmptySetPrintsNoObjectiveAndOneDot) {
  samples().clear();
  search(type);
  EXPECT_EQ(runFit(),
            "Building preconditioner ... done.\n\nWeight fitting . done.\n\nHit percentage: 100%\n\n");
}

TEST_F(Fit, SquaredNetCountsAreThoseOfCountingEachSample) {
  learnRandom(60, 5);
  std::vector<double> expected;
  for (std::int32_t kind = 0; kind < pieceKindCount; ++kind) {
    for (const PatternNode& node : network.row()[kind]) {
      double sum = 0.0;
      for (std::size_t i = 0; i < samples().size(); ++i) {
        const Sample sample = samples().sample(i);
        double count = 0.0;
        const auto fires = [&](const PieceConfiguration& piece) {
          return piece.kind == kind && (piece.word & node.mask) == node.mask ? 1.0 : 0.0;
        };
        for (const PieceConfiguration& piece : sample.ownList) count += fires(piece);
        for (const PieceConfiguration& piece : sample.opposingList) count -= fires(piece);
        sum += count * count;
      }
      expected.push_back(sum);
    }
  }
  EXPECT_EQ(squaredNetCounts(samples(), network.row()), expected);
}

class OrderedSums : public Fit {
 protected:
  void expectWalks(const NodeList& list) {
    std::vector<ConfigurationWord> words;
    for (std::uint32_t number = 0; number < samples().configurations().size(); ++number) {
      words.push_back(samples().configurations()[number].word);
    }
    std::vector<double> sums(words.size());
    sumWeightsInOrder(list, words, FiringMatrix(list, words), sums);
    for (std::size_t i = 0; i < words.size(); ++i) {
      double walk = 0.0;
      for (const PatternNode& node : list) {
        if ((words[i] & node.mask) == node.mask) walk += static_cast<double>(node.weight);
      }
      ASSERT_EQ(std::bit_cast<std::uint64_t>(sums[i]), std::bit_cast<std::uint64_t>(walk))
          << std::hex << words[i];
    }
  }
};

// Weights from a grid, whose sums are exact in any order, with a growing share that is far below or above it.
TEST_F(OrderedSums, AreThoseOfTheWalkWhateverTheWeights) {
  learnRandom(800, 6);
  std::mt19937 random(7);
  NodeList list = network.row()[pawnKind];
  ASSERT_GT(list.size(), 200U);
  for (const std::uint32_t oddities : {0U, 1U, 40U, 2000U}) {
    for (PatternNode& node : list) {
      const auto units = static_cast<double>(random() % 4001) - 2000.0;
      node.weight = static_cast<float>(units / 256.0);
      if (random() % 2000 < oddities) node.weight = std::ldexp(node.weight, random() % 2 == 0 ? -60 : 40);
    }
    expectWalks(list);
  }
  list[list.size() / 2].weight = std::numeric_limits<float>::denorm_min();
  expectWalks(list);
  list.front().weight = std::numeric_limits<float>::infinity();
  expectWalks(list);
}

}  // namespace
}  // namespace quorvane

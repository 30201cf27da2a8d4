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
    FitProgress progress;
    return runFit(progress, output);
  }
  std::string runFit(FitProgress& progress, const CapturedOutput& output) {
    FitSystem system(samples(), network.row());
    fitWeights(system, progress);
    progress.ends(network.conjugateStep(system, true));
    return output.str();
  }
};

TEST_F(Fit, GivesThePlainFitsWeightsAndFiguresBitForBit) {
  for (const auto& [count, seed] : {std::pair{40U, 1U}, {150U, 2U}, {400U, 3U}}) {
    learnRandom(count, seed);
    ASSERT_GT(nodes().size(), 300U);
    const std::string output = runFit();
    const std::vector<float> fast = weights();

    PlainFit plain(copies(samples()), network);
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
    Residuals plain;
    for (const Sample& sample : copies(samples())) plain.add(sample.target - network.evaluate(sample));
    const Residuals fast = system.residuals(caches);
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
  const std::vector<Sample> all = copies(samples());
  std::vector<double> expected;
  for (std::int32_t kind = 0; kind < pieceKindCount; ++kind) {
    for (const PatternNode& node : network.row()[kind]) {
      double sum = 0.0;
      for (const Sample& sample : all) {
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
  EXPECT_EQ(FitSystem(samples(), network.row()).accumulateCounts(), expected);
}

// Both fits, plain and fast, follow one set of formulas; these two judge the formulas themselves.
TEST_F(Fit, ObjectiveNeverRisesAboveItsFirstValue) {
  struct Objectives : FitProgress {
    void built(const FitSystem&, const Residuals& residuals) override { all = {residuals.objective()}; }
    void stepped(const Residuals& residuals) override { all.push_back(residuals.objective()); }
    void ends(const Residuals& residuals) override { all.push_back(residuals.objective()); }
    std::vector<double> all;
  };
  for (std::uint32_t seed = 10; seed < 20; ++seed) {
    learnRandom(40 + 20 * seed, seed);
    CapturedOutput quiet;
    Objectives objectives;
    runFit(objectives, quiet);
    ASSERT_GT(objectives.all.size(), 3U);
    EXPECT_EQ(std::ranges::max(objectives.all), objectives.all.front()) << seed;
    EXPECT_LT(objectives.all.back(), objectives.all.front()) << seed;
  }
}

// The normal equations sum_j (sum_s c(i, s) c(j, s)) w(j) = sum_s t(s) c(i, s), by elimination in long double. Patterns of
// several kinds overlap, and both sides have them; where patterns cannot be told apart, one of them gets the weight 0.
class DenseSolution {
 public:
  DenseSolution(const std::vector<Sample>& samples, const NetworkRow& row) {
    for (const Sample& sample : samples) {
      std::vector<long double> counts;
      for (std::int32_t kind = 0; kind < pieceKindCount; ++kind) {
        for (const PatternNode& node : row[kind]) {
          const auto fires = [&](const PieceConfiguration& piece) {
            return piece.kind == kind && (piece.word & node.mask) == node.mask;
          };
          counts.push_back(std::ranges::count_if(sample.ownList, fires) -
                           std::ranges::count_if(sample.opposingList, fires));
        }
      }
      counts.push_back(sample.target);
      rows.push_back(counts);
    }
    const std::size_t size = rows.front().size() - 1;
    equations.assign(size, std::vector<long double>(size + 1));
    for (const auto& counts : rows) {
      for (std::size_t i = 0; i < size; ++i) {
        for (std::size_t j = 0; j <= size; ++j) equations[i][j] += counts[i] * counts[j];
      }
    }
    for (std::size_t i = 0; i < size; ++i) {
      if (std::abs(equations[i][i]) < 1e-9L) continue;  // depends on those before it
      for (std::size_t other = 0; other < size; ++other) {
        if (other == i) continue;
        const long double factor = equations[other][i] / equations[i][i];
        for (std::size_t j = i; j <= size; ++j) equations[other][j] -= factor * equations[i][j];
      }
    }
  }

  double objective() const {
    long double squares = 0.0L;
    for (const auto& counts : rows) {
      long double residual = counts.back();
      for (std::size_t i = 0; i < equations.size(); ++i) {
        if (std::abs(equations[i][i]) >= 1e-9L) residual -= counts[i] * equations[i].back() / equations[i][i];
      }
      squares += residual * residual;
    }
    return static_cast<double>(squares / static_cast<long double>(rows.size()));
  }

 private:
  std::vector<std::vector<long double>> rows;  // net counts, and the target
  std::vector<std::vector<long double>> equations;
};

TEST_F(Fit, ComesToTheDenseSolution) {
  std::mt19937 random(31);
  for (int round = 0; round < 20; ++round) {
    samples().clear();
    const auto list = [&] {
      std::vector<PieceConfiguration> pieces;
      for (std::uint32_t count = 1 + random() % 4; count > 0; --count) {
        pieces.push_back(
            {static_cast<ConfigurationWord>(random() & 0x20011), static_cast<std::uint8_t>(random() % 3)});
      }
      return pieces;
    };
    // Large targets, against which the tolerance of the fit is small.
    for (int i = 0; i < 60; ++i)
      samples().append(list(), list(), static_cast<std::int32_t>(random() % 20001) - 10000);
    search(type);
    ASSERT_GT(nodes().size(), 6U);
    const double least = DenseSolution(copies(samples()), network.row()).objective();
    const std::string output = runFit();
    const double reached = std::stod(output.substr(output.rfind("f(w)=") + 5));
    EXPECT_NEAR(reached / least, 1.0, 1e-5) << round;
  }
}

}  // namespace
}  // namespace quorvane

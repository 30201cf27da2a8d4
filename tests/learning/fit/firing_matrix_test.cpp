#include "learning/fit/firing_matrix.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <limits>
#include <numeric>
#include <random>

#include "learning/fit/ordered_sums.h"
#include "learning/learning_fixture.h"

namespace quorvane {
namespace {

// A list of random patterns of one to three bits, in preorder as the search leaves them, and different random
// words.
struct Problem {
  // Patterns hold no bits but `patternBits`.
  Problem(std::uint32_t seed, ConfigurationWord patternBits) : random(seed) {
    addPatterns(patternBits, 0, 0);
    std::vector<ConfigurationWord> different;
    for (int i = 0; i < 400; ++i) different.push_back(static_cast<ConfigurationWord>(random() & random()));
    different.push_back(0);
    std::ranges::sort(different);
    different.erase(std::unique(different.begin(), different.end()), different.end());
    // Places in no order, with gaps; the last one is that of no word.
    noWord = static_cast<std::uint32_t>(2 * different.size());
    std::vector<std::uint32_t> places(noWord);
    std::iota(places.begin(), places.end(), 0U);
    std::ranges::shuffle(places, random);
    for (std::size_t i = 0; i < different.size(); ++i) words.push_back({different[i], places[i]});
    FiringMatrix::sort(words);
  }

  void addPatterns(ConfigurationWord bits, ConfigurationWord parent, std::int32_t depth) {
    for (std::int32_t bit = 0; bit < 32; ++bit) {
      const ConfigurationWord added = ConfigurationWord{1} << bit;
      if ((bits & added) == 0 || added <= parent || random() % (depth == 0 ? 2 : 4) != 0) continue;
      const std::size_t index = list.size();
      list.push_back({});
      list[index].mask = parent | added;
      if (depth < 2) addPatterns(bits, list[index].mask, depth + 1);
      closeNode(list, index);
    }
  }

  std::mt19937 random;
  NodeList list;
  std::vector<PlacedWord> words;
  std::uint32_t noWord;
};

constexpr ConfigurationWord lowHalf = 0x1ffff;

TEST(FiringMatrix, ProductsAreThoseOfEveryPatternOnEveryWord) {
  for (const ConfigurationWord bits :
       {~ConfigurationWord{0}, ~lowHalf, lowHalf, ConfigurationWord{0x3c0f0}, 0U}) {
    Problem problem(bits ^ 5, bits);
    const FiringMatrix matrix(problem.list, problem.words, problem.noWord);
    std::vector<double> byNode;
    for (std::size_t node = 0; node < problem.list.size(); ++node)
      byNode.push_back(1.0 + static_cast<double>(node * node % 101));
    std::vector<double> byPlace(problem.noWord + 1, -1.0);
    matrix.sumNodes(byNode, [&](std::uint32_t place, double sum) { byPlace[place] = sum; });
    byPlace.pop_back();
    std::vector<double> backNode(byNode.size(), 7.0);
    std::vector<double> expectedBack = backNode;
    std::vector<double> amounts(problem.noWord + 1);
    for (std::size_t place = 0; place < problem.noWord; ++place)
      amounts[place] = static_cast<double>(place % 13);
    matrix.addWords(amounts, backNode);
    std::vector<double> expected(problem.noWord, -1.0);
    for (const auto& [word, place] : problem.words) {
      expected[place] = 0.0;
      for (std::size_t node = 0; node < byNode.size(); ++node) {
        if ((word & problem.list[node].mask) != problem.list[node].mask) continue;
        expected[place] += byNode[node];
        expectedBack[node] += amounts[place];
      }
    }
    EXPECT_EQ(byPlace, expected) << bits;  // whole numbers: exact in any order
    EXPECT_EQ(backNode, expectedBack) << bits;
  }
}

void expectWalks(const Problem& problem) {
  const FiringMatrix matrix(problem.list, problem.words, problem.noWord);
  std::vector<WordValue> values(problem.noWord + 1);
  sumWeightsInOrder(problem.list, problem.words, matrix, values);
  const auto bits = [](double value) { return std::bit_cast<std::uint64_t>(value); };
  for (const auto& [word, place] : problem.words) {
    double walk = 0.0;
    for (const PatternNode& node : problem.list) {
      if ((word & node.mask) == node.mask) walk += static_cast<double>(node.weight);
    }
    const double sum = values[place].unrounded();
    ASSERT_TRUE((std::isnan(walk) && std::isnan(sum)) || bits(sum) == bits(walk)) << std::hex << word;
  }
}

TEST(OrderedSums, AreThoseOfTheWalkWhateverTheWeights) {
  for (std::uint32_t seed = 1; seed <= 60; ++seed) {
    Problem problem(seed, ~ConfigurationWord{0});
    // From weights on one grid, whose sums are exact in any order, to weights over 64 powers of two.
    const auto powers = static_cast<std::int32_t>(seed % 65);
    for (PatternNode& node : problem.list) {
      const auto units = static_cast<float>(static_cast<std::int32_t>(problem.random() % 4001) - 2000);
      node.weight =
          std::ldexp(units, -8 - (powers == 0 ? 0 : static_cast<std::int32_t>(problem.random()) % powers));
    }
    expectWalks(problem);
    problem.list[problem.list.size() / 2].weight = std::numeric_limits<float>::denorm_min();
    expectWalks(problem);
    problem.list.front().weight = std::numeric_limits<float>::infinity();
    expectWalks(problem);
    problem.list.back().weight = -std::numeric_limits<float>::infinity();
    expectWalks(problem);
  }
}

}  // namespace
}  // namespace quorvane

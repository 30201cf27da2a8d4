#include <cstdlib>

#include "configurations/configuration_word.h"
#include "learning/learning_fixture.h"

namespace quorvane {
namespace {

class PatternSearch : public LearningTest {
 protected:
  static constexpr PositionType type = 8;

  // The search as its rules read: every test draws for itself and looks at every piece.
  void plainSearch(PieceKind kind, ConfigurationWord mask, std::int32_t nextBit, std::int32_t depth,
                   NodeList& list) {
    for (std::int32_t bit = nextBit; bit < configurationBits; ++bit) {
      const ConfigurationWord candidate = mask | configurationBit(bit);
      if (!plainIsFrequent(kind, candidate)) continue;
      const std::size_t index = list.size();
      list.push_back({});
      list[index].mask = candidate;
      if (depth > 0) plainSearch(kind, candidate, bit + 1, depth - 1, list);
      list[index].skip = static_cast<std::int32_t>(list.size() - index);
      for (std::size_t child = index + 1; child < list.size();
           child += static_cast<std::size_t>(list[child].skip)) {
        list[index].childBits |= list[child].mask & ~candidate;
      }
    }
  }

  bool plainIsFrequent(PieceKind kind, ConfigurationWord mask) {
    std::uint32_t state = 5;
    const auto draw = [&] { return state = state * 239 % 65536; };
    std::int32_t sum = 0;
    for (int tries = 0; tries < 1000 && !samples.empty(); ++tries) {
      const std::uint32_t high = draw();
      const Sample& sample = samples[((high << 16) | draw()) % samples.size()];
      std::int32_t count = 0;
      const auto fires = [&](const PieceConfiguration& piece) {
        return piece.kind == kind && (piece.word & mask) == mask ? 1 : 0;
      };
      for (const PieceConfiguration& piece : sample.ownList) count += fires(piece);
      for (const PieceConfiguration& piece : sample.opposingList) count -= fires(piece);
      sum += std::abs(count);
      if (sum >= 15) return true;
    }
    return false;
  }

  std::vector<Sample> samples;  // those of the set, for the plain search

  void append(ConfigurationWord own, ConfigurationWord opposing) {
    sampleSets[type].append(std::vector<PieceConfiguration>{{own, rookKind}},
                            std::vector<PieceConfiguration>{{opposing, rookKind}}, 0);
  }

  std::vector<ConfigurationWord> rookMasks() {
    search(type);
    std::vector<ConfigurationWord> masks;
    for (const PatternNode& node : network.row()[rookKind]) masks.push_back(node.mask);
    return masks;
  }
};

TEST_F(PatternSearch, FindsTheForestOfThePlainSearch) {
  for (const auto& [count, seed] : {std::pair{0U, 0U}, {1U, 1U}, {9U, 2U}, {1500U, 3U}}) {
    fillWithRandomSamples(sampleSets[type], count, seed);
    search(type);
    samples = copies(sampleSets[type]);
    for (std::int32_t kind = 0; kind < pieceKindCount; ++kind) {
      NodeList plain;
      plainSearch(static_cast<PieceKind>(kind), 0, 0, searchDepth, plain);
      const NodeList& found = network.row()[kind];
      ASSERT_EQ(found.size(), plain.size()) << count << " samples, kind " << kind;
      for (std::size_t i = 0; i < plain.size(); ++i) {
        EXPECT_EQ(found[i].mask, plain[i].mask);
        EXPECT_EQ(found[i].childBits, plain[i].childBits);
        EXPECT_EQ(found[i].skip, plain[i].skip);
        EXPECT_EQ(found[i].weight, 0.0F);
      }
    }
  }
}

TEST_F(PatternSearch, OneSampleCountsAgainAtEachOfItsDraws) {
  sampleSets[type].clear();
  append(0x5, 0x4);  // bit 2 on both sides: net count 0
  EXPECT_EQ(rookMasks(), (std::vector<ConfigurationWord>{0x1, 0x5}));
}

TEST_F(PatternSearch, NetCountsOfOppositeSignAddUpOverSamples) {
  sampleSets[type].clear();
  append(0x80000000, 0);
  append(0, 0x80000000);
  EXPECT_EQ(rookMasks(), std::vector<ConfigurationWord>{0x80000000});
}

// The set of bits 0 and 1 is frequent, but bit 0 alone is not, so that it is never tried.
TEST_F(PatternSearch, ExtendsFrequentPatternsOnly) {
  sampleSets[type].clear();
  append(0x3, 0x1);
  EXPECT_EQ(rookMasks(), std::vector<ConfigurationWord>{0x2});
}

TEST_F(PatternSearch, PrintsTheCountsOfAllLearnedTypes) {
  for (SampleSet& set : sampleSets) set.clear();
  append(0x80000001, 0);
  CapturedOutput output;
  searchAllPatterns();
  const std::string empty =
      "Configuration count for piece 0: 0\nConfiguration count for piece 1: 0\n"
      "Configuration count for piece 2: 0\nConfiguration count for piece 3: 0\n"
      "Configuration count for piece 4: 0\nConfiguration count for piece 5: 0\n\n";
  std::string expected;
  for (const char* const positions : {"6: 0", "7: 0", "8: 1", "9: 0", "10: 0", "11: 0", "12: 0", "13: 0"}) {
    expected += std::string("Number of positions of type ") + positions + "\n" + empty;
    if (positions[0] == '8') expected.replace(expected.rfind("3: 0"), 4, "3: 3");
  }
  EXPECT_EQ(output.str(), expected);
}

}  // namespace
}  // namespace quorvane

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
      closeNode(list, index);
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

  // The patterns that are found in samples of a rook on either side.
  std::vector<ConfigurationWord> masksOf(
      std::initializer_list<std::pair<ConfigurationWord, ConfigurationWord>> words) {
    SampleSet& set = sampleSets[type];
    set.clear();
    for (const auto& [own, opposing] : words) {
      set.append(std::vector<PieceConfiguration>{{own, rookKind}},
                 std::vector<PieceConfiguration>{{opposing, rookKind}}, 0);
    }
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

TEST_F(PatternSearch, CountsWhatOneSideShowsMore) {
  using Masks = std::vector<ConfigurationWord>;
  EXPECT_EQ(masksOf({{0x5, 0x4}}), (Masks{0x1, 0x5})) << "one sample counts again at each draw; bit 2 nets 0";
  EXPECT_EQ(masksOf({{0x80000000, 0}, {0, 0x80000000}}), Masks{0x80000000})
      << "signs do not cancel over samples";
  EXPECT_EQ(masksOf({{0x3, 0x1}}), Masks{0x2}) << "bits 0 and 1 are frequent, bit 0 alone is not";
}

}  // namespace
}  // namespace quorvane

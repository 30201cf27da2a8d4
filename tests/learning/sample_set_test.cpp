#include "learning/sample_set.h"

#include <gtest/gtest.h>

#include <random>

#include "learning/sample_walk.h"

namespace quorvane {
namespace {

// Samples follow each other as in games, or have nothing in common: lists that grow, shrink and change their
// kinds, up to full ones and down to none, over many blocks.
TEST(SampleSet, GivesBackWhatWasAppended) {
  std::mt19937 random(1);
  const auto below = [&](std::size_t end) { return random() % end; };
  const auto change = [&](std::vector<PieceConfiguration>& list) {
    if (below(8) == 0) list.resize(below(piecesPerSide + 1), {7, queenKind});
    for (PieceConfiguration& piece : list) {
      if (below(2) == 0) piece.word = static_cast<ConfigurationWord>(random() & 0xf000'000f);
      if (below(20) == 0) piece.kind = static_cast<std::uint8_t>(below(pieceKindCount));
    }
  };
  SampleSet set;
  std::vector<Sample> samples;
  Sample games[2];  // the sides move in turn
  for (std::size_t index = 0; index < 20'000; ++index) {
    Sample& sample = games[below(16) == 0 ? index % 2 : 1 - index % 2];
    change(sample.ownList);
    change(sample.opposingList);
    sample.target = static_cast<std::int32_t>(random());
    samples.push_back(sample);
    set.append(sample.ownList, sample.opposingList, sample.target);
  }
  ASSERT_EQ(set.size(), samples.size());
  const auto expectSamples = [&](std::size_t count) {
    SampleWalk walk(set);
    for (std::size_t index = 0; index < count; ++index) {
      ASSERT_TRUE(walk.next());
      ASSERT_TRUE(std::ranges::equal(samples[index].ownList, walk.ownList()));
      ASSERT_TRUE(std::ranges::equal(samples[index].opposingList, walk.opposingList()));
      ASSERT_EQ(samples[index].target, walk.target());
    }
    EXPECT_FALSE(walk.next());
  };
  expectSamples(samples.size());
  EXPECT_EQ(set.sample(12'345).target, samples[12'345].target);
  for (const std::size_t count : {0U, 1U}) {  // nothing is left of what was there before
    set.clear();
    if (count != 0) set.append(samples[0].ownList, samples[0].opposingList, samples[0].target);
    expectSamples(count);
  }
}

}  // namespace
}  // namespace quorvane

#include "inspect/measure/comparison.h"

#include <gtest/gtest.h>

#include <random>

namespace quorvane::inspect {
namespace {

constexpr PositionType type = 9;

// 200 games of 20 samples; what a network says of them misses by errors of this size that are one in a whole
// game, and one of their own in each sample.
Contender contender(const std::string& name, double gameError, double sampleError, unsigned seed) {
  std::mt19937 random(seed);
  const auto noise = [&](double size) {
    return size * (static_cast<double>(random() % 2001) / 1000.0 - 1.0);
  };
  Contender made{name, {}, {}};
  made.validation.games = 200;
  made.validation.patterns[type] = 1;
  for (std::uint32_t game = 0; game < 200; ++game) {
    const int outcome = static_cast<int>(game % 3) - 1;
    const double missed = noise(gameError);
    for (int sample = 0; sample < 20; ++sample) {
      made.validation.byType[type].push_back(
          {20.0 * outcome + missed + noise(sampleError), 20 * outcome, outcome, 0, game});
    }
  }
  made.curves = calibrate(name, {}, made.validation);
  return made;
}

TEST(Comparison, CannotTellANetworkFromItselfOrFromOneAsGood) {
  const Contender one = contender("one", 10.0, 0.0, 1);
  const Comparison same = compare(one, one);
  EXPECT_EQ(same.all.samples, 4000U);
  EXPECT_EQ(same.all.f.low, 0.0);
  EXPECT_EQ(same.all.f.high, 0.0);
  EXPECT_EQ(conclusion(one, one, same), "These games cannot tell which is better.");

  // Were the samples taken for independent, the interval would be a fourth as wide, and find a difference now
  // and then.
  std::size_t told = 0;
  for (unsigned seed = 2; seed < 42; ++seed)
    told += compare(one, contender("other", 10.0, 0.0, seed)).all.f.tells() ? 1 : 0;
  EXPECT_LE(told, 12U);
}

TEST(Comparison, FindsTheBetterOneAndSaysWhich) {
  const Contender good = contender("good", 4.0, 0.0, 1);
  const Contender bad = contender("bad", 25.0, 0.0, 2);
  const Comparison comparison = compare(bad, good);
  EXPECT_GT(comparison.byType[type].f.low, 0.0);
  EXPECT_NEAR(comparison.all.f.mean, 25.0 * 25.0 / 3.0 - 16.0 / 3.0, 30.0);
  EXPECT_LT(comparison.all.f.low, comparison.all.f.mean);
  EXPECT_GT(comparison.all.f.high, comparison.all.f.mean);
  EXPECT_EQ(conclusion(bad, good, comparison).substr(0, 14), "good is better");
  EXPECT_EQ(conclusion(good, bad, compare(good, bad)).substr(0, 14), "good is better");
}

}  // namespace
}  // namespace quorvane::inspect

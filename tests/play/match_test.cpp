#include "play/match/match.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdlib>

#include "play/match/match_output.h"
#include "play/protocol/time_control.h"
#include "support/files.h"
#include "support/temporary_folder.h"

namespace quorvane::play {
namespace {

MatchScore scoreOfPairs(std::int64_t lost, std::int64_t three, std::int64_t two, std::int64_t one,
                        std::int64_t won) {
  MatchScore score;
  for (; lost > 0; --lost) score.addPair(0, 0);
  for (; three > 0; --three) score.addPair(1, 0);
  for (; two > 0; --two) score.addPair(1, 1);
  for (; one > 0; --one) score.addPair(2, 1);
  for (; won > 0; --won) score.addPair(2, 2);
  return score;
}

TEST(PlayMatchScore, TellsDifferencesFromPairs) {
  EXPECT_NEAR(eloOf(0.75), 190.85, 0.01);
  EXPECT_NEAR(scoreOf(eloOf(0.31)), 0.31, 1e-12);
  const MatchScore score = scoreOfPairs(10, 20, 40, 20, 10);
  EXPECT_EQ(score.wins, 40);
  EXPECT_EQ(score.draws, 120);
  EXPECT_EQ(score.losses, 40);
  EXPECT_EQ(score.mean(), 0.5);
  EXPECT_NEAR(score.variance(), 0.2 * 0.25 + 0.4 * 0.0625, 1e-12);
  const EloInterval interval = eloInterval(score);
  EXPECT_NEAR(interval.elo, 0.0, 1e-9);
  EXPECT_NEAR(interval.high, eloOf(0.5 + 1.96 * std::sqrt(0.075 / 100.0)), 0.01);
  EXPECT_NEAR(interval.low, -interval.high, 1e-9);
  // As the opponent sees it.
  EXPECT_NEAR(logLikelihoodRatio(scoreOfPairs(3, 20, 40, 25, 12), 0, 10),
              -logLikelihoodRatio(scoreOfPairs(12, 25, 40, 20, 3), -10, 0), 1e-9);
}

TEST(PlayMatchScore, IsNeverSureOfFewPairs) {
  for (const MatchScore& score : {MatchScore(), scoreOfPairs(0, 0, 0, 0, 1), scoreOfPairs(0, 0, 3, 0, 0)}) {
    const EloInterval interval = eloInterval(score);
    EXPECT_LT(interval.low, 0.0);
    EXPECT_TRUE(std::isfinite(interval.low) && std::isfinite(interval.high));
    EXPECT_TRUE(std::isfinite(logLikelihoodRatio(score, 0, 5)));
  }
  EXPECT_EQ(verdict(MatchScore()), "these games cannot tell; they stand level");
  EXPECT_EQ(verdict(scoreOfPairs(1, 0, 2, 1, 1)),
            "these games cannot tell; about 165 more pairs would, if they go on like this");
  EXPECT_TRUE(verdict(scoreOfPairs(0, 2, 10, 20, 40)).starts_with("A is stronger, by "));
  EXPECT_TRUE(verdict(scoreOfPairs(40, 20, 10, 2, 0)).starts_with("B is stronger, by "));
}

TEST(PlayOpenings, AreFortyAndEachComesOnce) {
  const std::vector<Opening> usual = usualOpenings();
  EXPECT_EQ(usual.size(), 40U);
  for (const Opening& opening : usual) EXPECT_EQ(opening.moves.size(), 10U);
  const TemporaryFolder folder;
  writeFile("games.pgn",
            "[White \"a\"]\n\n1. e4 {one} e5 2. Nf3 Nc6 *\n\n[White \"b\"]\n\n1. Nf3 Nc6 2. e4 e5 *\n\n"
            "[White \"c\"]\n\n1. d4 d5 *\n\n[White \"d\"]\n\n1. e4 e5 2. Ke3 *\n\n"
            "[FEN \"4k3/8/8/8/8/8/8/R3K3 w Q - 0 1\"]\n\n1. O-O-O Ke7 2. Rd4 Ke6 *\n");
  const std::vector<Opening> read = readOpenings("games.pgn", 4);
  ASSERT_EQ(read.size(), 2U);  // the second is reached before, the third is too short, the fourth no game
  EXPECT_EQ(read[1].moves[0].kind, castleQueenSide);
  EXPECT_EQ(readOpenings("games.pgn", 2).size(), 4U);
  writeFile("lines.epd", "4k3/8/8/8/8/8/8/R3K3 w Q - bm Ra8;\r\n\r\n4k3/8/8/8/8/8/8/4K3 w - -\n");
  EXPECT_EQ(readOpenings("lines.epd", 16).size(), 1U);  // in the other the game is over
  writeFile("wrong.epd", "4k3/8/8/8/8/8/8/R3K3 w Q -\n4k3/8/8/8/8/8/8/R3K3 x Q -\n");
  for (const char* const name : {"none.pgn", "wrong.epd", "empty.pgn"})
    EXPECT_THROW(readOpenings(name, 4), std::runtime_error) << name;
}

std::string playedWith(std::int32_t jobs, std::optional<SequentialTest> test, std::size_t& pairs) {
  const Contender first{"first", Knowledge(), allDevices};
  const Contender second{"second", Knowledge(), allDevices & ~std::uint32_t{quiescence}};
  MatchPlan plan{usualOpenings(), 100, jobs, test};
  const std::atomic<bool> interrupted{false};
  std::string games;
  pairs = 0;
  const MatchScore score = playMatch(first, second, plan, interrupted,
                                     [&](std::size_t index, const PlayedPair& pair, const MatchScore&) {
                                       games += pairPgn(first, second, plan, index, pair);
                                       ++pairs;
                                     });
  return games + matchText("first", "second", plan, score) + matchJson("first", "second", plan, score);
}

TEST(PlayMatch, IsTheSameForAnyNumberOfJobs) {
  std::size_t pairs = 0;
  const std::string alone = playedWith(1, {}, pairs);
  EXPECT_EQ(pairs, 40U);
  EXPECT_NE(alone.find("A is stronger"), std::string::npos);  // who looks at captures to their end
  EXPECT_EQ(playedWith(3, {}, pairs), alone);
  const std::string tested = playedWith(1, SequentialTest{0, 100}, pairs);
  EXPECT_LT(pairs, 40U);
  EXPECT_EQ(playedWith(3, SequentialTest{0, 100}, pairs), tested);
}

TEST(PlayMatch, EndsAtOnceWhenInterrupted) {
  const Contender one{"one", Knowledge(), allDevices};
  const MatchPlan plan{usualOpenings(), 1'000'000'000, 2, {}};
  const std::atomic<bool> interrupted{true};
  EXPECT_EQ(playMatch(one, one, plan, interrupted, [](auto&&...) {}).pairCount(), 0);
}

TEST(PlayTime, NeverSpendsWhatIsNotThere) {
  using namespace std::chrono_literals;
  const Milliseconds overhead{10};
  EXPECT_FALSE(timeLimits({}, overhead));
  EXPECT_EQ(timeLimits({{}, 0ms, 0, 500ms}, overhead)->hard, 490ms);
  EXPECT_EQ(timeLimits({{}, 0ms, 0, 100ms}, overhead)->hard, 95ms);
  for (const std::int64_t left : {-1000, 0, 1, 15, 50, 200, 1000, 60'000, 10'000'000}) {
    for (const std::int64_t increment : {0, 10, 1000, 100'000}) {
      for (const std::int32_t moves : {0, 1, 2, 40, 2'000'000'000}) {
        const Allowance allowance{Milliseconds(left), Milliseconds(increment), moves, {}};
        const TimeLimits limits = *timeLimits(allowance, overhead);
        EXPECT_LE(limits.soft, limits.hard);
        EXPECT_GE(limits.soft, 1ms);
        EXPECT_LE(limits.hard, std::max(Milliseconds(left) - overhead, 1ms)) << left << ' ' << increment;
      }
    }
  }
}

}  // namespace
}  // namespace quorvane::play

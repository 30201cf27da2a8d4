#ifndef QUORVANE_PLAY_MATCH_MATCH_H_
#define QUORVANE_PLAY_MATCH_MATCH_H_

#include <atomic>
#include <functional>
#include <optional>
#include <utility>

#include "play/match/game.h"
#include "play/match/match_score.h"

namespace quorvane::play {

// A sequential test between two differences in Elo.
struct SequentialTest {
  double elo0;
  double elo1;
};

struct MatchPlan {
  std::vector<Opening> openings;  // one for each pair
  std::uint64_t nodes = 1000;
  std::int32_t jobs = 1;
  std::optional<SequentialTest> test;
};

// The two games from one opening: the first contender has White, then Black.
using PlayedPair = std::pair<PlayedGame, PlayedGame>;

// Plays a match, several pairs at once on as many threads as there are jobs. Pairs are counted and handed to
// `take` in the order of the openings, and those behind the one that ends the test are left out: what comes
// out is the same for any number of jobs. Ends early as soon as `interrupted`, without the pairs begun.
MatchScore playMatch(
    const Contender& first, const Contender& second, const MatchPlan& plan,
    const std::atomic<bool>& interrupted,
    const std::function<void(std::size_t index, const PlayedPair&, const MatchScore&)>& take);

}  // namespace quorvane::play

#endif  // QUORVANE_PLAY_MATCH_MATCH_H_

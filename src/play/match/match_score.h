#ifndef QUORVANE_PLAY_MATCH_MATCH_SCORE_H_
#define QUORVANE_PLAY_MATCH_MATCH_SCORE_H_

#include <cstdint>
#include <string>

#include "board/table.h"

namespace quorvane::play {

// How a match stands, from the first contender's side. Games come in pairs from one opening, which are taken
// as one: the games of a pair have the opening in common, pairs nothing.
struct MatchScore {
  std::int64_t wins = 0;
  std::int64_t draws = 0;
  std::int64_t losses = 0;
  Table<std::int64_t, 5> pairs{};  // by the half points that both games of a pair brought

  // The half points of its two games.
  void addPair(std::int32_t one, std::int32_t other);

  std::int64_t pairCount() const;
  // Of a game, 0 to 1; 1/2 before the first.
  double mean() const;
  // Of the mean score of a pair; at least as if each outcome had come half a time too, where all are the
  // same.
  double variance() const;
};

// Differences in Elo, with what is 95 % sure. None is told beyond 1200, where hardly a point is lost.
struct EloInterval {
  double low;
  double elo;
  double high;
};
EloInterval eloInterval(const MatchScore& score);

// The difference that a mean score stands for: 400 log10(s / (1 - s)) (Elo 1978).
double eloOf(double score);
double scoreOf(double elo);

// The logarithm of how much likelier the outcome is at a difference of `elo1` than at `elo0`, by the normal
// distribution of pairs: the generalized sequential probability ratio test, as Michel Van den Bergh has it.
double logLikelihoodRatio(const MatchScore& score, double elo0, double elo1);
// Beyond this on either side the test is over: in five of a hundred cases each it errs.
inline constexpr double likelihoodLimit = 2.944438979166441;  // log(0.95 / 0.05)

// What the match tells, in a sentence.
std::string verdict(const MatchScore& score);

}  // namespace quorvane::play

#endif  // QUORVANE_PLAY_MATCH_MATCH_SCORE_H_

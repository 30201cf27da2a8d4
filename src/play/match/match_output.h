#ifndef QUORVANE_PLAY_MATCH_MATCH_OUTPUT_H_
#define QUORVANE_PLAY_MATCH_MATCH_OUTPUT_H_

#include <string>

#include "play/match/match.h"

namespace quorvane::play {

// How it stands, for people, in lines.
std::string matchText(const std::string& first, const std::string& second, const MatchPlan& plan,
                      const MatchScore& score);

// The same as one line of JSON, for programs.
std::string matchJson(const std::string& first, const std::string& second, const MatchPlan& plan,
                      const MatchScore& score);

// Both games of a pair, which is the `index`-th from 0, as PGN with the score of each move, seen by White, in
// a comment behind it.
std::string pairPgn(const Contender& first, const Contender& second, const MatchPlan& plan, std::size_t index,
                    const PlayedPair& pair);

}  // namespace quorvane::play

#endif  // QUORVANE_PLAY_MATCH_MATCH_OUTPUT_H_

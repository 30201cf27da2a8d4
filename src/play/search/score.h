#ifndef QUORVANE_PLAY_SEARCH_SCORE_H_
#define QUORVANE_PLAY_SEARCH_SCORE_H_

#include <cstdint>

namespace quorvane::play {

// Scores are hundredths of a pawn to the side to move; a mate in so many plies is that much less than mate at
// once.
inline constexpr std::int32_t mateScore = 32000;
inline constexpr std::int32_t greatestJudgement = 20000;
// No line is searched any deeper.
inline constexpr std::int32_t mostPlies = 128;

constexpr std::int32_t matedIn(std::int32_t plies) {
  return plies - mateScore;
}
constexpr bool isMate(std::int32_t score) {
  return score > mateScore - mostPlies || score < mostPlies - mateScore;
}
// Moves of the winner to the mate, below 0 for the side that is mated.
constexpr std::int32_t movesToMate(std::int32_t score) {
  return score > 0 ? (mateScore - score + 1) / 2 : -(mateScore + score + 1) / 2;
}
static_assert(movesToMate(-matedIn(1)) == 1 && movesToMate(-matedIn(3)) == 2 &&
              movesToMate(matedIn(2)) == -1 && movesToMate(matedIn(1)) == -1);

}  // namespace quorvane::play

#endif  // QUORVANE_PLAY_SEARCH_SCORE_H_

#ifndef QUORVANE_PLAY_MATCH_OPENINGS_H_
#define QUORVANE_PLAY_MATCH_OPENINGS_H_

#include <cstdint>
#include <string>
#include <vector>

#include "play/position/position.h"

namespace quorvane::play {

// How a game begins: moves made from a start.
struct Opening {
  Position start;
  std::vector<Move> moves;
};

// Forty that masters play, of ten plies each.
std::vector<Opening> usualOpenings();

// Those of a file: the first `plies` of each of its games, passing over those that are shorter, or positions
// as FEN or EPD, one a line. Each position stands once, where it comes first; those in which the game is over
// are left out. Throws a std::runtime_error, a sentence that begins with the file, if it holds none, or if a
// line is no position.
std::vector<Opening> readOpenings(const std::string& file, std::int32_t plies);

}  // namespace quorvane::play

#endif  // QUORVANE_PLAY_MATCH_OPENINGS_H_

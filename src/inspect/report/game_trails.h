#ifndef QUORVANE_INSPECT_REPORT_GAME_TRAILS_H_
#define QUORVANE_INSPECT_REPORT_GAME_TRAILS_H_

#include <cstdint>
#include <string>
#include <vector>

#include "inspect/explain/explanation.h"

namespace quorvane::inspect {

// A position of a game and the move that led to it; no move and noSquare twice for the start position.
struct TrailStep {
  std::string move;
  Square from;
  Square to;
  Explanation explanation;
};

// A game with what the network says of each of its positions.
struct GameTrail {
  std::string file;
  std::int32_t number;  // in the file, from 1
  std::string white;    // the players, empty where a tag does not name them
  std::string black;
  std::string event;
  std::string date;
  std::int32_t result;  // whiteWon, blackWon, draw or noResult
  std::vector<TrailStep> steps;
};

// Replays games of the files, up to a move that cannot be played, in the order of `games`: numbers as in
// Prediction::game. Throws a Fault for a file that can no longer be read.
std::vector<GameTrail> followGames(const std::vector<std::string>& files,
                                   const std::vector<std::uint32_t>& games, const NetworkTable& table);

}  // namespace quorvane::inspect

#endif  // QUORVANE_INSPECT_REPORT_GAME_TRAILS_H_

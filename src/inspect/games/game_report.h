#ifndef QUORVANE_INSPECT_GAMES_GAME_REPORT_H_
#define QUORVANE_INSPECT_GAMES_GAME_REPORT_H_

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "inspect/games/game_verdict.h"

namespace quorvane::inspect {

// Called after each game; `file` is the one at work.
using ShowProgress = std::function<void(const std::string& file, std::int32_t done, std::int32_t games)>;

// A game that did not count, or not as a whole.
struct OddGame {
  std::int32_t number;  // in its file, from 1
  std::string white;    // the players, empty without such tags
  std::string black;
  GameVerdict verdict;
};

struct FileReport {
  std::string file;
  GameTally tally;
  std::vector<OddGame> odd;
};

// Judges all games of a file, possibly none. Throws a Fault if it cannot be read.
FileReport reportGames(const std::string& file, const ShowProgress& showProgress);

}  // namespace quorvane::inspect

#endif  // QUORVANE_INSPECT_GAMES_GAME_REPORT_H_

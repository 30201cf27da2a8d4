#ifndef QUORVANE_INSPECT_GAMES_GAME_TALLY_H_
#define QUORVANE_INSPECT_GAMES_GAME_TALLY_H_

#include <cstdint>
#include <map>
#include <string>
#include <vector>

#include "inspect/common/game_files.h"
#include "inspect/common/json.h"
#include "inspect/games/game_verdict.h"

namespace quorvane::inspect {

// What came of many games.
struct GameTally {
  std::size_t games = 0;
  std::size_t withResult = 0;  // for these the utility prints a dot
  std::size_t withSamples = 0;
  std::size_t samples = 0;
  std::map<Oddity, std::size_t> withoutSamples;  // games
  std::map<Oddity, std::size_t> partly;          // games that gave samples in spite of it

  void add(const GameVerdict& verdict);
};

// A game that did not count, or not as a whole.
struct OddGame {
  std::int32_t number;  // in its file, from 1
  std::string white;    // the players, empty without such tags
  std::string black;
  GameVerdict verdict;
};

struct JudgedFile {
  std::string file;
  GameTally tally;
  std::vector<OddGame> odd;
};

// Judges all games of a file, possibly none. Throws a Fault if it cannot be read.
JudgedFile judgeFile(const std::string& file, const ShowProgress& showProgress);

// One line: how many games counted, and why the others did not.
std::string tallyText(const GameTally& tally);
Json tallyJson(const GameTally& tally);

std::string gamesText(const std::vector<JudgedFile>& files);
Json gamesJson(const std::vector<JudgedFile>& files);

}  // namespace quorvane::inspect

#endif  // QUORVANE_INSPECT_GAMES_GAME_TALLY_H_

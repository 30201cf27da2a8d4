#ifndef QUORVANE_INSPECT_COMMON_GAME_FILES_H_
#define QUORVANE_INSPECT_COMMON_GAME_FILES_H_

#include <cstdint>
#include <sstream>
#include <string>

#include "pgn/pgn_database.h"

namespace quorvane::inspect {

// The games of one file, possibly none. Throws a Fault if it cannot be opened, is a folder or a network.
PgnDatabase loadAnyGames(const std::string& fileName);

// The same, but throws a Fault if the file holds no games; since the database makes a game of any text, a game
// without tags, moves and result is none.
PgnDatabase loadGames(const std::string& fileName);

// The bytes of a file, and the games that the utility makes of them.
struct GameText {
  std::stringstream bytes;  // at their beginning
  PgnDatabase database;
};

// The same as loadGames, with the bytes. Reads the file once, and so takes a pipe as well.
GameText loadGameText(const std::string& fileName);

std::int32_t gameCount(PgnDatabase& database);

}  // namespace quorvane::inspect

#endif  // QUORVANE_INSPECT_COMMON_GAME_FILES_H_

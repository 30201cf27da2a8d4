#ifndef QUORVANE_INSPECT_GAME_FILES_H_
#define QUORVANE_INSPECT_GAME_FILES_H_

#include <cstdint>
#include <string>

#include "pgn/pgn_database.h"

namespace quorvane {

// The games of one file. Throws a Fault if it cannot be opened or holds no games; since the database makes a
// game of any text, a game without tags, moves and result is none.
PgnDatabase loadGames(const std::string& fileName);

std::int32_t gameCount(PgnDatabase& database);

}  // namespace quorvane

#endif  // QUORVANE_INSPECT_GAME_FILES_H_

#ifndef QUORVANE_INSPECT_COMMON_GAME_FILES_H_
#define QUORVANE_INSPECT_COMMON_GAME_FILES_H_

#include <cstdint>
#include <functional>
#include <sstream>
#include <string>
#include <string_view>
#include <vector>

#include "pgn/pgn_database.h"
#include "pgn/token_reader.h"

namespace quorvane::inspect {

// The games of one file, possibly none. Throws a Fault if it cannot be opened, is a folder or a network.
PgnDatabase loadAnyGames(const std::string& fileName);

// The same, but throws a Fault if the file holds no games; since the database makes a game of any text, a
// game without tags, moves and result is none.
PgnDatabase loadGames(const std::string& fileName);

// The bytes of a file, and the games that the utility makes of them.
struct GameText {
  std::stringstream bytes;  // at their beginning
  PgnDatabase database;
};

// The same as loadGames, with the bytes. Reads the file once, and so takes a pipe as well.
GameText loadGameText(const std::string& fileName);

// Where the parts of a game stand in its file.
struct GameParts {
  std::vector<std::string_view> tags;  // with their brackets
  std::string_view moves;              // all that stands behind them, comments included
};

// Finds the parts of the games, one after the other, as the database has cut them.
class GamePartsReader {
 public:
  // From the beginning of its bytes; `games` must outlive the reader and the parts.
  explicit GamePartsReader(GameText& games) : text(games.bytes.view()), reader(games.bytes) {}
  GameParts next();

 private:
  std::string_view between(std::uint64_t begin, std::uint64_t end) const {
    return text.substr(static_cast<std::size_t>(begin), static_cast<std::size_t>(end - begin));
  }

  std::string_view text;
  TokenReader reader;
};

std::int32_t gameCount(PgnDatabase& games);

// Called after each game; `file` is the one at work.
using ShowProgress = std::function<void(const std::string& file, std::int32_t done, std::int32_t games)>;

// Calls visit(number, game) for each game of a file, numbers from 1, and shows the progress.
template <typename Visit>
void forEachGame(PgnDatabase& games, const std::string& file, const ShowProgress& showProgress, Visit visit) {
  const std::int32_t count = gameCount(games);
  for (std::int32_t number = 1; number <= count; ++number) {
    visit(number, *games.game(number - 1));
    showProgress(file, number, count);
  }
}

// The value of a tag, "White" say; empty if the game has no such tag.
std::string tagValue(const PgnGame& game, std::string_view name);

}  // namespace quorvane::inspect

#endif  // QUORVANE_INSPECT_COMMON_GAME_FILES_H_

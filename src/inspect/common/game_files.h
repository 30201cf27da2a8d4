#ifndef QUORVANE_INSPECT_COMMON_GAME_FILES_H_
#define QUORVANE_INSPECT_COMMON_GAME_FILES_H_

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "pgn/pgn_database.h"

namespace quorvane::inspect {

// The games of one file, possibly none. Throws a Fault if it cannot be opened, is a folder or a network.
PgnDatabase loadAnyGames(const std::string& fileName);

// The same, but throws a Fault if the file holds no games; since the database makes a game of any text, a
// game without tags, moves and result is none.
PgnDatabase loadGames(const std::string& fileName);

// A game in its text.
struct GameParts {
  std::vector<std::string_view> tags;  // with their brackets
  std::string_view moves;              // all that stands behind them, comments included

  // The value of the last tag of that name, in whatever letters; nothing without one, or without quotes.
  std::optional<std::string_view> tagValue(std::string_view name) const;
};

// The bytes of a file, and its games as the PGN standard cuts them: a bracket in a comment or a variation
// begins no tag. The utility cuts there, and so may count other games.
struct GameText {
  std::string bytes;
  std::vector<GameParts> games;  // views of the bytes
};

// Reads the file once, and so takes a pipe as well. Throws a Fault as loadGames does.
std::unique_ptr<const GameText> loadGameText(const std::string& fileName);

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

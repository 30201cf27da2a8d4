#include "inspect/game_files.h"

#include <filesystem>
#include <fstream>

#include "inspect/fault.h"

namespace quorvane {

namespace {

bool hasMove(PgnGame& game) {
  std::int32_t ignored;
  return game.nextMove(ignored, ignored, ignored, ignored, ignored, ignored);
}

}  // namespace

std::int32_t gameCount(PgnDatabase& database) {
  std::int32_t count = 0;
  while (database.game(count) != nullptr) ++count;
  return count;
}

PgnDatabase loadGames(const std::string& fileName) {
  if (std::filesystem::is_directory(fileName)) throw Fault(fileName, "is a folder");
  if (!std::ifstream(fileName)) throw Fault(fileName, "cannot be opened");
  PgnDatabase database;
  database.load(fileName);
  PgnGame* game;
  for (std::int32_t index = 0; (game = database.game(index)) != nullptr; ++index) {
    if (!game->tags.empty() || game->result() != noResult || hasMove(*game)) return database;
  }
  throw Fault(fileName, "holds no games");
}

}  // namespace quorvane

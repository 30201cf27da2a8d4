#include "inspect/game_files.h"

#include <filesystem>
#include <fstream>

#include "files/file_name.h"
#include "inspect/fault.h"

namespace quorvane::inspect {

namespace {

bool hasMove(PgnGame& game) {
  DecodedMove ignored;
  return game.nextMove(ignored);
}

// A network begins with the number of its version, 1, in four bytes; no game does.
bool isNetwork(std::ifstream& file) {
  std::string start(4, '\0');
  file.read(start.data(), 4);
  return file && start == std::string("\1\0\0\0", 4);
}

}  // namespace

std::int32_t gameCount(PgnDatabase& database) {
  std::int32_t count = 0;
  while (database.game(count) != nullptr) ++count;
  return count;
}

PgnDatabase loadAnyGames(const std::string& fileName) {
  const std::filesystem::path path = pathOf(fileName);
  if (std::filesystem::is_directory(path)) throw Fault(fileName, "is a folder");
  std::ifstream file(path, std::ios::binary);
  if (!file) throw Fault(fileName, "cannot be opened");
  if (std::filesystem::is_regular_file(path) && isNetwork(file)) {
    throw Fault(fileName, "is a network, not a file of games");
  }
  file.close();
  PgnDatabase database;
  database.load(fileName);
  return database;
}

PgnDatabase loadGames(const std::string& fileName) {
  PgnDatabase database = loadAnyGames(fileName);
  PgnGame* game;
  for (std::int32_t index = 0; (game = database.game(index)) != nullptr; ++index) {
    if (!game->tags.empty() || game->result() != noResult || hasMove(*game)) return database;
  }
  throw Fault(fileName, "holds no games");
}

}  // namespace quorvane::inspect

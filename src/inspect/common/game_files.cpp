#include "inspect/common/game_files.h"

#include <filesystem>
#include <fstream>

#include "files/file_name.h"
#include "inspect/common/fault.h"

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

// At its beginning.
std::ifstream open(const std::string& fileName) {
  const std::filesystem::path path = pathOf(fileName);
  if (std::filesystem::is_directory(path)) throw Fault(fileName, "is a folder");
  std::ifstream file(path, std::ios::binary);
  if (!file) throw Fault(fileName, "cannot be opened");
  if (std::filesystem::is_regular_file(path)) {
    if (isNetwork(file)) throw Fault(fileName, "is a network, not a file of games");
    file.clear();
    file.seekg(0);
  }
  return file;
}

void refuseWithoutGames(PgnDatabase& database, const std::string& fileName) {
  PgnGame* game;
  for (std::int32_t index = 0; (game = database.game(index)) != nullptr; ++index) {
    if (!game->tags.empty() || game->result() != noResult || hasMove(*game)) return;
  }
  throw Fault(fileName, "holds no games");
}

}  // namespace

std::int32_t gameCount(PgnDatabase& games) {
  std::int32_t count = 0;
  while (games.game(count) != nullptr) ++count;
  return count;
}

PgnDatabase loadAnyGames(const std::string& fileName) {
  std::ifstream file = open(fileName);
  PgnDatabase database;
  database.load(file);
  return database;
}

PgnDatabase loadGames(const std::string& fileName) {
  PgnDatabase database = loadAnyGames(fileName);
  refuseWithoutGames(database, fileName);
  return database;
}

GameText loadGameText(const std::string& fileName) {
  GameText text;
  text.bytes << open(fileName).rdbuf();
  text.bytes.clear();  // an empty file is no failure
  text.database.load(text.bytes);
  text.bytes.clear();
  text.bytes.seekg(0);
  refuseWithoutGames(text.database, fileName);
  return text;
}

GameParts GamePartsReader::next() {
  GameParts parts;
  TextBuilder ignored;
  while (reader.atTag()) {
    const TokenPlace tag = reader.readTag(ignored);
    parts.tags.push_back(between(tag.begin, tag.end));
  }
  std::vector<TokenPlace> tokens;
  reader.readTokens(ignored, tokens);
  if (!tokens.empty()) parts.moves = between(tokens.front().begin, tokens.back().end);
  return parts;
}

std::string tagValue(const PgnGame& game, std::string_view name) {
  for (std::size_t index = 0; index < game.tags.size(); ++index) {
    const std::string_view tag = game.tags[index];
    if (!tag.starts_with(name) || tag.substr(name.size(), 1).find_first_not_of(" \t\"") == 0) continue;
    const std::size_t begin = tag.find('"');
    const std::size_t end = tag.rfind('"');
    if (end != begin) return std::string(tag.substr(begin + 1, end - begin - 1));
  }
  return {};
}

}  // namespace quorvane::inspect

#include "inspect/common/game_files.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <sstream>

#include "files/file_name.h"
#include "inspect/common/fault.h"
#include "inspect/common/move_text.h"

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

namespace {

// A tag ends at its bracket, one between quotes on its line aside.
std::size_t endOfTag(std::string_view text, std::size_t begin) {
  bool quoted = false;
  for (std::size_t at = begin; at < text.size() && text[at] != '\n'; ++at) {
    if (text[at] == '"' && text[at - 1] != '\\') quoted = !quoted;
    if (text[at] == ']' && !quoted) return at + 1;
  }
  return std::min(text.find(']', begin), text.size() - 1) + 1;
}

std::vector<GameParts> gamesOf(std::string_view text) {
  std::vector<GameParts> games;
  for (std::size_t at = 0; at < text.size();) {
    GameParts& game = games.emplace_back();
    MoveText moves(text.substr(at));
    while (!moves.next() && at + moves.position() < text.size()) {
      const std::size_t begin = at + moves.position();
      at = endOfTag(text, begin);
      game.tags.push_back(text.substr(begin, at - begin));
      moves = MoveText(text.substr(at));
    }
    const std::size_t first = std::min(text.find_first_not_of(" \t\n\v\f\r", at), text.size());
    while (moves.next()) continue;
    at += moves.position();
    game.moves = text.substr(std::min(first, at), at - std::min(first, at));
  }
  return games;
}

bool isGame(const GameParts& parts) {
  if (!parts.tags.empty()) return true;
  MoveText moves(parts.moves);
  while (const std::optional<MoveElement> element = moves.next()) {
    if (element->kind == MoveElement::move || element->kind == MoveElement::result) return true;
  }
  return false;
}

}  // namespace

std::optional<std::string_view> GameParts::tagValue(std::string_view name) const {
  std::optional<std::string_view> value;
  for (const std::string_view tag : tags) {
    const std::size_t begin = std::min(tag.find_first_not_of(" [\t"), tag.size());
    const std::string_view rest = tag.substr(begin);
    const auto small = [](char letter) {
      return letter >= 'A' && letter <= 'Z' ? letter + ('a' - 'A') : letter;
    };
    const std::size_t quote = rest.find('"');
    const std::size_t end = rest.rfind('"');
    if (quote == end || !std::ranges::equal(rest.substr(0, name.size()), name, {}, small, small)) continue;
    if (rest.substr(name.size(), quote - name.size()).find_first_not_of(" \t") == std::string_view::npos)
      value = rest.substr(quote + 1, end - quote - 1);
  }
  return value;
}

std::unique_ptr<const GameText> loadGameText(const std::string& fileName) {
  auto text = std::make_unique<GameText>();
  std::ostringstream bytes;
  bytes << open(fileName).rdbuf();
  text->bytes = std::move(bytes).str();
  text->games = gamesOf(text->bytes);
  if (std::ranges::none_of(text->games, isGame)) throw Fault(fileName, "holds no games");
  return text;
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

#include "pgn/pgn_database.h"

#include <fstream>
#include <string_view>

#include "files/file_name.h"
#include "pgn/token_reader.h"

namespace quorvane {

namespace {

constexpr std::string_view usualStartTag = "FEN \"rnbqkbnr/pppppppp/8/8/8/8/PPPPPPPP/RNBQKBNR w KQkq - 0 1\"";

bool isFenTag(std::string_view tag) {
  return tag.starts_with("FEN ") || tag.starts_with("fen ") || tag.starts_with("Fen ");
}

bool readStart(PgnGame& game, std::string_view fenTag) {
  if (!game.parseFen(fenTag)) return false;
  if (game.placement.fitsBoard()) return true;
  game.placement.clear();
  return false;
}

}  // namespace

void PgnDatabase::load(const std::string& name) {
  // No file has such a name, but one that ends there may exist.
  if (name.find('\0') != std::string::npos) return;
  // As the bytes are: in text mode Windows would end the file at a byte of 26.
  std::ifstream file(pathOf(name), std::ios::binary);
  if (file) load(file);
}

void PgnDatabase::load(std::istream& file) {
  TokenReader reader(file);
  PgnGame usualStart;
  readStart(usualStart, usualStartTag);
  TextBuilder tags;
  TextBuilder tokens;
  while (!reader.ended()) {
    PgnGame& game = games.emplace_back();
    bool hasFen = false;
    tags.clear();
    while (reader.atTag()) {
      reader.readTag(tags);
      if (isFenTag(tags.back())) hasFen = readStart(game, tags.back());
    }
    if (!hasFen) game = usualStart;
    tokens.clear();
    reader.readTokens(tokens);
    game.tags = texts.keep(tags);
    game.tokens = texts.keep(tokens);
  }
}

PgnGame* PgnDatabase::game(std::int32_t index) {
  if (index < 0 || static_cast<std::size_t>(index) >= games.size()) return nullptr;
  PgnGame* const found = &games[static_cast<std::size_t>(index)];
  found->tokenCursor = 0;
  return found;
}

void PgnDatabase::clear() {
  *this = {};
}

}  // namespace quorvane

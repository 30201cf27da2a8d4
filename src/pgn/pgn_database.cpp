#include "pgn/pgn_database.h"

#include <fstream>
#include <string_view>

#include "files/file_name.h"
#include "pgn/pgn_scanner.h"

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

bool isDigit(char character) {
  return character >= '0' && character <= '9';
}

// One token, of which `first` has been read, into the open string.
void readToken(PgnScanner& scanner, char first, TextBuilder& token) {
  token.add(first);
  const auto readBracketed = [&](char end) {
    scanner.readUpTo(end, token);
    token.add(end);
  };
  switch (first) {
    case '(':
      return readBracketed(')');
    case '{':
      return readBracketed('}');
    case '<':
      return readBracketed('>');
    case '*':
      return;
    default:
      break;
  }
  if (!isDigit(first)) return scanner.readWord(token);

  const char second = scanner.readCharacter();
  if (scanner.ended()) return;
  token.add(second);
  if (isDigit(second)) {
    scanner.readUpTo('.', token);
  } else if (second != '.') {
    scanner.readWord(token);
  }
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
  PgnScanner scanner(file);
  PgnGame usualStart;
  readStart(usualStart, usualStartTag);
  TextBuilder tags;
  TextBuilder tokens;

  char first = scanner.readCharacter();
  while (!scanner.ended()) {
    PgnGame& game = games.emplace_back();
    bool hasFen = false;
    tags.clear();
    for (; first == '[' && !scanner.ended(); first = scanner.readCharacter()) {
      scanner.readUpTo(']', tags);
      tags.close();
      if (isFenTag(tags.back())) hasFen = readStart(game, tags.back());
    }
    if (!hasFen) game = usualStart;
    tokens.clear();
    for (; first != '[' && !scanner.ended(); first = scanner.readCharacter()) {
      readToken(scanner, first, tokens);
      tokens.close();
    }
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

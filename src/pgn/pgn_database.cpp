#include "pgn/pgn_database.h"

#include <fstream>
#include <string_view>

#include "pgn/pgn_scanner.h"

namespace quorvane {

namespace {

constexpr std::string_view defaultStart = "FEN \"rnbqkbnr/pppppppp/8/8/8/8/PPPPPPPP/RNBQKBNR w KQkq - 0 1\"";

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

// One token, of which `first` has been read, into the open string of the list.
void readToken(PgnScanner& scanner, char first, std::string& token) {
  token += first;
  const auto readBracketed = [&](char end) {
    scanner.readUpTo(end, token);
    token += end;
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
  token += second;
  if (isDigit(second)) {
    scanner.readUpTo('.', token);
  } else if (second != '.') {
    scanner.readWord(token);
  }
}

}  // namespace

void PgnDatabase::load(const std::string& name) {
  if (name.find('\0') != std::string::npos)
    return;  // no file has such a name, but one that ends there may exist
  std::ifstream file(name);
  if (!file) return;
  PgnScanner scanner(file);
  // Each game takes a copy of these, which allocates just what it needs.
  TextList tags;
  TextList tokens;

  char first = scanner.readCharacter();
  while (!scanner.ended()) {
    PgnGame& game = games.emplace_back();
    bool hasFen = false;
    tags.clear();
    for (; first == '[' && !scanner.ended(); first = scanner.readCharacter()) {
      scanner.readUpTo(']', tags.open());
      tags.close();
      if (isFenTag(tags.back())) hasFen = readStart(game, tags.back());
    }
    if (!hasFen) readStart(game, defaultStart);
    tokens.clear();
    for (; first != '[' && !scanner.ended(); first = scanner.readCharacter()) {
      readToken(scanner, first, tokens.open());
      tokens.close();
    }
    game.tags = tags;
    game.tokens = tokens;
  }
}

PgnGame* PgnDatabase::game(std::int32_t index) {
  if (index < 0 || static_cast<std::size_t>(index) >= games.size()) return nullptr;
  PgnGame* const found = &games[static_cast<std::size_t>(index)];
  found->tokenCursor = 0;
  return found;
}

}  // namespace quorvane

#include "pgn/token_reader.h"

#include <cassert>

namespace quorvane {

namespace {

bool isDigit(char character) {
  return character >= '0' && character <= '9';
}

// Adds the token of which `first` has been read to the open string.
inline void readToken(PgnScanner& scanner, char first, TextBuilder& token) {
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
  if (!isDigit(first)) {
    scanner.readWord(token);
    return;
  }

  const char second = scanner.readCharacter();
  if (scanner.ended()) return;
  token.add(second);
  if (second == '.') return;
  if (!isDigit(second)) {
    scanner.readWord(token);
    return;
  }
  // The period behind a number of two digits or more is no part of it.
  scanner.readUpTo('.', token);
}

}  // namespace

void TokenReader::readTag(TextBuilder& tags) {
  assert(atTag());
  scanner.readUpTo(']', tags);
  tags.close();
  first = scanner.readCharacter();
}

void TokenReader::readTokens(TextBuilder& tokens) {
  for (; first != '[' && !scanner.ended(); first = scanner.readCharacter()) {
    readToken(scanner, first, tokens);
    tokens.close();
  }
}

}  // namespace quorvane

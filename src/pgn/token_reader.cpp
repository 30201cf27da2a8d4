#include "pgn/token_reader.h"

#include <cassert>

namespace quorvane {

namespace {

bool isDigit(char character) {
  return character >= '0' && character <= '9';
}

// Adds the token of which `first` has been read to the open string; gives its end in the file.
inline std::uint64_t readToken(PgnScanner& scanner, char first, TextBuilder& token) {
  token.add(first);
  const auto readBracketed = [&](char end) {
    scanner.readUpTo(end, token);
    token.add(end);
    return scanner.position();
  };
  const auto readWordBehind = [&](std::uint64_t position) {
    return scanner.readWord(token) ? scanner.position() : position;
  };
  const std::uint64_t behindFirst = scanner.position();
  switch (first) {
    case '(':
      return readBracketed(')');
    case '{':
      return readBracketed('}');
    case '<':
      return readBracketed('>');
    case '*':
      return behindFirst;
    default:
      break;
  }
  if (!isDigit(first)) return readWordBehind(behindFirst);

  const char second = scanner.readCharacter();
  if (scanner.ended()) return behindFirst;
  token.add(second);
  const std::uint64_t behindSecond = scanner.position();
  if (second == '.') return behindSecond;
  if (!isDigit(second)) return readWordBehind(behindSecond);
  // The period behind a number of two digits or more is no part of it.
  const bool hasPeriod = scanner.readUpTo('.', token);
  return scanner.position() - (hasPeriod ? 1 : 0);
}

// All up to the next tag, of which it gives the first character; `note` is told their places.
template <typename Note>
char readAll(PgnScanner& scanner, char first, TextBuilder& tokens, Note note) {
  for (; first != '[' && !scanner.ended(); first = scanner.readCharacter()) {
    const std::uint64_t begin = scanner.position() - 1;
    note(TokenPlace{begin, readToken(scanner, first, tokens)});
    tokens.close();
  }
  return first;
}

}  // namespace

TokenPlace TokenReader::readTag(TextBuilder& tags) {
  assert(atTag());
  const std::uint64_t begin = scanner.position() - 1;
  scanner.readUpTo(']', tags);
  tags.close();
  const TokenPlace place{begin, scanner.position()};
  first = scanner.readCharacter();
  return place;
}

void TokenReader::readTokens(TextBuilder& tokens) {
  first = readAll(scanner, first, tokens, [](const TokenPlace&) {});  // at no cost for the places
}

void TokenReader::readTokens(TextBuilder& tokens, std::vector<TokenPlace>& places) {
  first = readAll(scanner, first, tokens, [&](const TokenPlace& place) { places.push_back(place); });
}

}  // namespace quorvane

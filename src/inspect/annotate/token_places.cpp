#include "inspect/annotate/token_places.h"

#include <stdexcept>

namespace quorvane::inspect {

namespace {

bool isWhiteSpace(char character) {
  return character == ' ' || (character >= '\t' && character <= '\r');
}

bool isDigit(char character) {
  return character >= '0' && character <= '9';
}

// Of a number of two digits or more the period behind it is read, and left out.
bool losesPeriod(std::string_view token) {
  return token.size() >= 2 && isDigit(token[0]) && isDigit(token[1]);
}

}  // namespace

void TokenPlaces::pass(std::string_view characters) {
  for (const char character : characters) {
    while (!ended() && text[position] != character && isWhiteSpace(text[position])) ++position;
    if (ended()) return;  // the reader closes what the end of the file has cut off
    if (text[position] != character) throw std::logic_error("a game is not found again in its file");
    ++position;
  }
}

void TokenPlaces::passTags(const TextList& tags) {
  for (std::size_t index = 0; index < tags.size(); ++index) {
    pass("[");
    pass(tags[index]);
    pass("]");
  }
}

TokenPlace TokenPlaces::next(std::string_view token) {
  while (!ended() && isWhiteSpace(text[position])) ++position;
  const std::size_t begin = position;
  pass(token);
  const TokenPlace place{begin, position};
  if (losesPeriod(token)) pass(".");
  return place;
}

}  // namespace quorvane::inspect

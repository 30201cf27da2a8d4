#include "inspect/common/move_text.h"

#include <algorithm>
#include <array>
#include <utility>

namespace quorvane::inspect {

namespace {

constexpr std::string_view whiteSpace = " \t\n\v\f\r";
constexpr std::string_view endsWord = " \t\n\v\f\r{}()<;$";
constexpr std::string_view digits = "0123456789";
constexpr std::array<std::string_view, 3> results = {"1-0", "0-1", "1/2-1/2"};

bool isLetter(char character) {
  return (character >= 'a' && character <= 'z') || (character >= 'A' && character <= 'Z');
}

// [%clk 0:01:00] is none.
bool beginsTag(std::string_view start) {
  return start.size() == 2 && start[0] == '[' && (isLetter(start[1]) || start[1] == ' ');
}

MoveElement::Kind kindOf(std::string_view word) {
  if (word.starts_with('$') || word.find_first_not_of("!?") == std::string_view::npos || word == "e.p.")
    return MoveElement::glyph;
  if (std::ranges::count(results, word) != 0) return MoveElement::result;
  // Castling is written with zeros as well, and a move that nobody makes with two dashes.
  const bool mayBeMove = isLetter(word.front()) || word.starts_with("0-0") || word.starts_with("--");
  return mayBeMove ? MoveElement::move : MoveElement::other;
}

}  // namespace

std::optional<MoveElement> MoveText::next() {
  at = std::min(text.find_first_not_of(whiteSpace, at), text.size());
  if (at == text.size()) return {};
  if (beginsTag(text.substr(at, 2))) return {};
  switch (text[at]) {
    case '{':
      return take(MoveElement::comment, behind('}'));
    case ';':
      return take(MoveElement::comment, std::min(text.find_first_of("\r\n", at), text.size()));
    case '(':
      return take(MoveElement::variation, endOfVariation());
    case '<':
      return take(MoveElement::other, behind('>'));
    case '%':
      if (at == 0 || text[at - 1] == '\n') return take(MoveElement::other, behind('\n'));
      return word();
    case '*':  // whatever stands behind it
      hasEnded = true;
      return take(MoveElement::result, at + 1);
    case ')':
    case '}':
      return take(MoveElement::other, at + 1);
    default:
      return word();
  }
}

MoveElement MoveText::take(MoveElement::Kind kind, std::size_t end) {
  const std::size_t begin = std::exchange(at, end);
  return {kind, text.substr(begin, end - begin)};
}

std::size_t MoveText::behind(char closing) const {
  return std::min(text.find(closing, at), text.size() - 1) + 1;
}

std::size_t MoveText::endOfVariation() const {
  MoveText inside(text);
  inside.at = at;
  std::size_t depth = 0;
  while (inside.at < text.size()) {
    const char character = text[inside.at];
    if (character == '{' || character == ';') {
      inside.next();
      continue;
    }
    // One that nothing closes ends with its game.
    if (character == '[' && text[inside.at - 1] == '\n' && beginsTag(text.substr(inside.at, 2))) break;
    ++inside.at;
    if (character == '(') ++depth;
    if (character == ')' && --depth == 0) break;
  }
  return inside.at;
}

MoveElement MoveText::word() {
  const std::size_t end = std::min(text.find_first_of(endsWord, at + 1), text.size());
  const std::string_view whole = text.substr(at, end - at);
  const MoveElement::Kind kind = kindOf(whole);
  if (kind == MoveElement::result) hasEnded = true;
  if (kind != MoveElement::other)
    return take(hasEnded && kind == MoveElement::move ? MoveElement::other : kind, end);
  // What stands behind the number of a move, or behind dots without one, is the next word.
  const std::size_t dots = std::min(whole.find_first_not_of(digits), whole.size());
  const std::size_t behindNumber = std::min(whole.find_first_not_of('.', dots), whole.size());
  return take(kind, behindNumber == 0 ? end : at + behindNumber);
}

}  // namespace quorvane::inspect

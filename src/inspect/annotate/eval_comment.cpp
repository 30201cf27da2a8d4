#include "inspect/annotate/eval_comment.h"

#include <algorithm>
#include <cassert>
#include <cmath>

#include "inspect/common/text_columns.h"

namespace quorvane::inspect {

namespace {

constexpr std::string_view whiteSpace = " \t\n\v\f\r";

}  // namespace

// lichess.org/page/accuracy has, for a value of cp centipawns,
//
//   Win% = 50 + 50 (2 / (1 + exp(-0.00368208 cp)) - 1)
//
// that is p = Win% / 100 = 1 / (1 + exp(-0.00368208 cp)), and the other way about
//
//   cp = log(p / (1 - p)) / 0.00368208
//
// A p of 0 or 1 gives an infinite cp, which the limits take away.
double pawnsOfScore(double expectedScore) {
  assert(expectedScore >= 0.0 && expectedScore <= 1.0);
  constexpr double steepness = 0.00368208;  // for each centipawn
  constexpr double centipawns = 100.0;
  const double pawns = std::log(expectedScore / (1.0 - expectedScore)) / (steepness * centipawns);
  return std::clamp(pawns, -mostPawns, mostPawns);
}

std::string evalCommand(double pawns) {
  return "[%eval " + fixed(pawns, 2) + "]";
}

std::string mateCommand(std::int32_t moves) {
  return "[%eval #" + std::to_string(moves) + "]";
}

std::vector<Stretch> evalCommandsIn(std::string_view comment) {
  constexpr std::string_view opening = "[%eval";
  std::vector<Stretch> commands;
  for (std::size_t begin = 0; (begin = comment.find(opening, begin)) != std::string_view::npos;) {
    const std::size_t behind = begin + opening.size();
    const std::size_t end = comment.find(']', behind);
    if (end == std::string_view::npos) break;
    const bool isEval = whiteSpace.find(comment[behind]) != std::string_view::npos;
    if (isEval) commands.push_back({begin, end + 1});
    begin = isEval ? end : behind;
  }
  return commands;
}

bool isSpace(char character) {
  return whiteSpace.find(character) != std::string_view::npos;
}

// A line end may be that of a comment behind a semicolon, and stays.
Stretch withItsSpace(std::string_view text, Stretch command) {
  const auto grow = [&](Stretch stretch, std::string_view blanks) {
    const auto grows = [&](std::size_t at) { return blanks.find(text[at]) != std::string_view::npos; };
    while (stretch.begin > 0 && grows(stretch.begin - 1)) --stretch.begin;
    while (stretch.end < text.size() && grows(stretch.end)) ++stretch.end;
    return stretch;
  };
  constexpr std::string_view blanks = " \t";
  const Stretch all = grow(command, whiteSpace);
  const bool opens = all.begin > 0 && text[all.begin - 1] == '{';
  const bool closes = all.end < text.size() && text[all.end] == '}';
  if (opens && closes) return {grow({all.begin - 1, all.end}, blanks).begin, all.end + 1};
  const Stretch line = grow(command, blanks);
  return closes ? Stretch{line.begin, command.end} : Stretch{command.begin, line.end};
}

std::size_t evalPlaceIn(std::string_view comment) {
  const std::size_t command = comment.find("[%");
  if (command != std::string_view::npos) return command;
  return std::min(comment.find_first_not_of(whiteSpace, 1), comment.size());
}

}  // namespace quorvane::inspect

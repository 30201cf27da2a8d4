#include "inspect/annotate/eval_comment.h"

#include <algorithm>
#include <cassert>
#include <cmath>

#include "inspect/common/text_columns.h"

namespace quorvane::inspect {

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

std::vector<Stretch> evalCommandsIn(std::string_view comment) {
  constexpr std::string_view opening = "[%eval";
  constexpr std::string_view whiteSpace = " \t\n\v\f\r";
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

bool isGlyph(std::string_view token) {
  if (token.starts_with('$')) {
    return token.size() > 1 && token.find_first_not_of("0123456789", 1) == std::string_view::npos;
  }
  return token.find_first_not_of("!?") == std::string_view::npos;
}

}  // namespace quorvane::inspect

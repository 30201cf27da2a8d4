#ifndef QUORVANE_INSPECT_ANNOTATE_EVAL_COMMENT_H_
#define QUORVANE_INSPECT_ANNOTATE_EVAL_COMMENT_H_

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace quorvane::inspect {

// The greatest number of pawns: as good as won.
inline constexpr double mostPawns = 10.0;

// The pawns of which lichess expects this score, from 0 to 1; 0 for 0.5, at most mostPawns either way.
double pawnsOfScore(double expectedScore);

// "[%eval 0.35]", the command of a comment that gives a value in pawns, as White sees it.
std::string evalCommand(double pawns);

// "[%eval #3]", the same of a mate in so many moves, below 0 if Black mates.
std::string mateCommand(std::int32_t moves);

// A part of a text.
struct Stretch {
  std::size_t begin;
  std::size_t end;
};

// All such commands in a comment, whatever value they give.
std::vector<Stretch> evalCommandsIn(std::string_view comment);

bool isSpace(char character);

// What goes with such a command where nothing takes its place: the blanks in front of it or behind it, and a
// comment that holds nothing else.
Stretch withItsSpace(std::string_view text, Stretch command);

// Where a comment in braces gets one: in front of its first command, or of all if it has none.
std::size_t evalPlaceIn(std::string_view comment);

}  // namespace quorvane::inspect

#endif  // QUORVANE_INSPECT_ANNOTATE_EVAL_COMMENT_H_

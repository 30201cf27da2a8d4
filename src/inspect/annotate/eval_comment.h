#ifndef QUORVANE_INSPECT_ANNOTATE_EVAL_COMMENT_H_
#define QUORVANE_INSPECT_ANNOTATE_EVAL_COMMENT_H_

#include <cstddef>
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

// A part of a text.
struct Stretch {
  std::size_t begin;
  std::size_t end;
};

// All such commands in a comment, whatever value they give.
std::vector<Stretch> evalCommandsIn(std::string_view comment);

// Is the token an annotation glyph, such as $1 or !?
bool isGlyph(std::string_view token);

}  // namespace quorvane::inspect

#endif  // QUORVANE_INSPECT_ANNOTATE_EVAL_COMMENT_H_

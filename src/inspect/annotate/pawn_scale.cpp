#include "inspect/annotate/pawn_scale.h"

#include <algorithm>
#include <cmath>

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
  constexpr double steepness = 0.00368208;  // for each centipawn
  constexpr double centipawns = 100.0;
  const double pawns = std::log(expectedScore / (1.0 - expectedScore)) / (steepness * centipawns);
  return std::clamp(pawns, -mostPawns, mostPawns);
}

}  // namespace quorvane::inspect

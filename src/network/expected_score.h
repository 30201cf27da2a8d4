#ifndef QUORVANE_NETWORK_EXPECTED_SCORE_H_
#define QUORVANE_NETWORK_EXPECTED_SCORE_H_

#include <cmath>

namespace quorvane {

// The expected score p(v) = 1 / (1 + exp(-k v)), from 0 to 1, for a steepness k of at least 0: it rises with
// the value, and 0 means 0.5. So does a value that is no number.
inline double expectedScore(double steepness, double value) {
  const double p = 1.0 / (1.0 + std::exp(-steepness * value));
  return std::isnan(p) ? 0.5 : p;
}

// The steepness for values in pawns, as lichess has published it.
inline constexpr double steepnessOfPawns = 0.368208;

}  // namespace quorvane

#endif  // QUORVANE_NETWORK_EXPECTED_SCORE_H_

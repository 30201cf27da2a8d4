#ifndef QUORVANE_INSPECT_MEASURE_LOGISTIC_CURVE_H_
#define QUORVANE_INSPECT_MEASURE_LOGISTIC_CURVE_H_

#include <vector>

#include "network/expected_score.h"

namespace quorvane::inspect {

// A value, and what the game brought to the side that it is of: 1 won, 0.5 drawn, 0 lost.
struct ScoredValue {
  double value;
  double score;
};

// The k of expectedScore, p(v) below, of the greatest likelihood, that is of the greatest sum of s log p(v) +
// (1 - s) log(1 - p(v)). Never below 0: where greater values score worse, and where there is nothing to fit,
// it is 0.
double fitSteepness(const std::vector<ScoredValue>& scored);

// -(s log p(v) + (1 - s) log(1 - p(v))), by natural logarithms: log 2 for a p of 0.5.
double logLoss(double steepness, const ScoredValue& scored);

}  // namespace quorvane::inspect

#endif  // QUORVANE_INSPECT_MEASURE_LOGISTIC_CURVE_H_

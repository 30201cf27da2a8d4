#ifndef QUORVANE_INSPECT_MEASURE_COMPARISON_H_
#define QUORVANE_INSPECT_MEASURE_COMPARISON_H_

#include <string>

#include "inspect/measure/judgement.h"

namespace quorvane::inspect {

// How much less one network's mean loss is than the other's: the first minus the second, so that above 0 the
// second is better. With it the limits between which it lies for 95 of 100 draws of as many games.
struct PairedDifference {
  double mean = 0.0;
  double low = 0.0;
  double high = 0.0;

  bool tells() const { return low > 0.0 || high < 0.0; }
};

struct ComparedType {
  std::size_t samples = 0;
  std::size_t decided = 0;
  Score first;
  Score second;
  PairedDifference f;
  PairedDifference logLoss;
};

struct Comparison {
  Table<ComparedType, positionTypeCount> byType{};
  ComparedType all;  // over the types of which either network has patterns
};

// One network and what it says of the games; the same games for both.
struct Contender {
  std::string name;
  Validation validation;
  Calibration curves;
};

// The contenders must have been measured on the same games. Resamples whole games (Efron's bootstrap,
// percentiles of 1000 draws): the positions of one game are not independent.
Comparison compare(const Contender& first, const Contender& second);

// Which is better, or that the games cannot tell; one line.
std::string conclusion(const Contender& first, const Contender& second, const Comparison& comparison);

}  // namespace quorvane::inspect

#endif  // QUORVANE_INSPECT_MEASURE_COMPARISON_H_

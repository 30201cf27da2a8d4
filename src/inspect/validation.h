#ifndef QUORVANE_INSPECT_VALIDATION_H_
#define QUORVANE_INSPECT_VALIDATION_H_

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "board/table.h"
#include "board/types.h"
#include "learning/fit_system.h"

namespace quorvane {

// A tenth of the samples, by predicted value.
struct Band {
  std::size_t samples;
  double lowest;  // predicted value
  double highest;
  double meanValue;
  double meanTarget;
};

// How well values meet the targets of samples, both as the side to move sees them.
class Measurement {
 public:
  // `outcome` is the game's result as the side to move sees it: 1, 0 or -1.
  void add(double value, std::int32_t target, std::int32_t outcome);
  void add(const Measurement& other);

  std::size_t samples() const { return predictions.size(); }
  // The fit's own sums, of the network and of a network of zeros.
  const FitSystem::Residuals& network() const { return residuals; }
  const FitSystem::Residuals& zeros() const { return residualsOfZeros; }
  // Samples of games that were not drawn, and those among them whose value has the sign of the outcome.
  std::size_t decided() const { return decidedSamples; }
  std::size_t agreeing() const { return agreeingSamples; }
  // Ten bands of as equal a number of samples as can be, the lowest values first; fewer than ten samples give
  // as many bands.
  std::vector<Band> bands() const;

 private:
  struct Prediction {
    double value;
    std::int32_t target;
  };
  std::vector<Prediction> predictions;
  FitSystem::Residuals residuals;
  FitSystem::Residuals residualsOfZeros;
  std::size_t decidedSamples = 0;
  std::size_t agreeingSamples = 0;
};

struct Validation {
  std::vector<std::string> files;
  std::size_t games = 0;  // that have a result
  Table<Measurement, positionTypeCount> byType;
  Table<std::size_t, positionTypeCount> patterns{};  // of the row of the type
  Measurement all;                                   // over the types whose rows hold patterns
};

// Called after each game; `file` is the one at work.
using ShowProgress = std::function<void(const std::string& file, std::int32_t done, std::int32_t games)>;

// Measures the network table on the samples that the utility would learn from these files. Throws a Fault for
// a file without a game that has a result, and if there is no sample at all.
Validation validateOn(const std::vector<std::string>& files, const ShowProgress& showProgress);

}  // namespace quorvane

#endif  // QUORVANE_INSPECT_VALIDATION_H_

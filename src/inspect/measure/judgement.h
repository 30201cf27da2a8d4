#ifndef QUORVANE_INSPECT_MEASURE_JUDGEMENT_H_
#define QUORVANE_INSPECT_MEASURE_JUDGEMENT_H_

#include <string>
#include <vector>

#include "inspect/measure/calibration.h"

namespace quorvane::inspect {

// One way of telling what becomes of positions, summed up over samples.
struct Score {
  double squares = 0.0;    // of target minus value
  double absolutes = 0.0;  // the same without its sign
  double hits = 0.0;       // samples with less than 1.0 of that
  double logLoss = 0.0;    // of the expected score, by natural logarithms
  double brier = 0.0;      // squares of score minus expected score
  // Samples of games that were not drawn, whose value names the winner; a value of 0 is half.
  double right = 0.0;

  void add(const Score& other);
};

// Of one sample, if `value` were said of it and the curve had this steepness.
Score scoreOf(const Prediction& prediction, double value, double steepness);

// The network beside two ways that need none: zeros, and the difference of material times the factor that
// makes f(w) least, fitted on these very samples, as is the curve of its expected score.
struct Figures {
  std::size_t samples = 0;
  std::size_t decided = 0;   // of games that were not drawn
  std::size_t agreeing = 0;  // those among them whose value has the sign of the outcome
  Score network;
  Score zeros;
  Score material;

  void add(const Figures& other);
};

// The samples whose expected score lies in one tenth of the scale.
struct ScoreBand {
  double from;  // up to 0.1 more
  Mean expected;
  Mean score;  // that they brought
};

struct Judgement {
  Table<Figures, positionTypeCount> byType{};
  Figures all;                        // over the types whose rows hold patterns
  std::vector<ScoreBand> scoreBands;  // ten, over the same types
};

// Measures a validation, with the curves of a calibration, which need not come from the same games.
Judgement judge(const Validation& validation, const Calibration& curves);

// What a person can take from it: one or two sentences, on one line.
std::string conclusion(const Validation& validation, const Judgement& judgement);

}  // namespace quorvane::inspect

#endif  // QUORVANE_INSPECT_MEASURE_JUDGEMENT_H_

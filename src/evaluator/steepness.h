#ifndef QUORVANE_EVALUATOR_STEEPNESS_H_
#define QUORVANE_EVALUATOR_STEEPNESS_H_

#include <optional>
#include <stdexcept>
#include <string>

#include "board/table.h"
#include "board/types.h"
#include "configurations/position_type.h"
#include "configurations/position_words.h"
#include "network/expected_score.h"

namespace quorvane::evaluator {

// What was read is no calibration of the network. The text is one line, a sentence without the file, which is
// its subject.
class BadCalibration : public std::runtime_error {
  using std::runtime_error::runtime_error;
};

// How steeply the expected score rises with the value, by position type: the k of expectedScore. Nothing for
// a type whose values mean nothing.
using Steepness = Table<std::optional<double>, positionTypeCount>;

// That of the calibration file `name`, UTF-8, which quorvane-inspect has written for the network of this
// fingerprint. Throws BadCalibration.
Steepness readSteepness(const std::string& name, const std::string& fingerprint);

// Where a network's calibration is looked for: NETWORK.calibration.json.
std::string calibrationBeside(const std::string& network);

// What a value is taken for where no calibration tells.
inline constexpr double usualSteepness = 0.03;

// What a position is worth in pawns to the side to move: what its value means, and the material. Games
// between masters hardly ever have a piece too few early on, so a network alone does not know what it is
// worth there; a search, which gives up pieces all the time to see what comes of it, needs both. Material
// alone for a type without patterns, that is without a steepness.
inline double pawnsOf(const PositionSets& position, std::optional<double> steepness, double value) {
  constexpr double pawn = whitePawnClass.material;
  const Side own = position.sideToMove;
  const std::int32_t balance =
      materialOf(countsOf(position.pieces[own])) - materialOf(countsOf(position.pieces[opponent(own)]));
  const double ofValue = steepness ? *steepness * value / steepnessOfPawns : 0.0;
  return ofValue + balance / pawn;
}

}  // namespace quorvane::evaluator

#endif  // QUORVANE_EVALUATOR_STEEPNESS_H_

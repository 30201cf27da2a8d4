#ifndef QUORVANE_INSPECT_MEASURE_CALIBRATION_H_
#define QUORVANE_INSPECT_MEASURE_CALIBRATION_H_

#include <optional>
#include <string>
#include <vector>

#include "inspect/measure/validation.h"
#include "network/fingerprint.h"

namespace quorvane::inspect {

// What values of one position type have meant on games.
struct TypeCalibration {
  std::size_t samples = 0;
  bool hasPatterns = false;      // without them every value is 0, and says nothing
  double steepness = 0.0;        // the k of the curve; see logistic_curve.h
  bool curveOfAllTypes = false;  // the type has too few samples for a curve of its own
  std::vector<Band> bands;
  Table<std::optional<double>, pieceKindCount> meanWorth{};  // of a piece to its own side
};

// Translates values of one network into expected scores.
struct Calibration {
  std::string network;  // the name of its file
  std::string fingerprint;
  std::vector<std::string> files;
  std::size_t games = 0;
  double steepnessOfAllTypes = 0.0;
  Table<TypeCalibration, positionTypeCount> types{};

  // From 0 to 1. Nothing for a type without patterns, and for a value that is not finite.
  std::optional<double> expectedScore(PositionType type, double value) const;
};

// Fits the curves on the games of a validation, which must be of `table`.
Calibration calibrate(const std::string& networkName, const NetworkTable& table,
                      const Validation& validation);

}  // namespace quorvane::inspect

#endif  // QUORVANE_INSPECT_MEASURE_CALIBRATION_H_

#include "inspect/measure/calibration.h"

#include <cmath>

#include "inspect/measure/logistic_curve.h"

namespace quorvane::inspect {

namespace {

constexpr std::size_t fewestSamples = 1000;  // for a curve of its own

double steepnessOf(const Predictions& predictions) {
  std::vector<ScoredValue> scored;
  scored.reserve(predictions.size());
  for (const Prediction& prediction : predictions) scored.push_back({prediction.value, prediction.score()});
  return fitSteepness(scored);
}

}  // namespace

std::optional<double> Calibration::expectedScore(PositionType type, double value) const {
  if (!types[type].hasPatterns || !std::isfinite(value)) return {};
  return quorvane::expectedScore(types[type].steepness, value);
}

Calibration calibrate(const std::string& networkName, const NetworkTable& table,
                      const Validation& validation) {
  Calibration calibration{networkName, fingerprintOf(table), validation.files, validation.games, 0.0, {}};
  calibration.steepnessOfAllTypes = steepnessOf(validation.all());
  for (PositionType type = 0; type < positionTypeCount; ++type) {
    const Predictions& predictions = validation.byType[type];
    TypeCalibration& calibrated = calibration.types[type];
    calibrated.samples = predictions.size();
    calibrated.hasPatterns = validation.patterns[type] != 0;
    calibrated.bands = bandsOf(predictions);
    for (std::int32_t kind = 0; kind < pieceKindCount; ++kind) {
      calibrated.meanWorth[kind] = meanOf(validation.worth[type][kind]).value();
    }
    if (!calibrated.hasPatterns) continue;
    calibrated.curveOfAllTypes = predictions.size() < fewestSamples;
    calibrated.steepness =
        calibrated.curveOfAllTypes ? calibration.steepnessOfAllTypes : steepnessOf(predictions);
  }
  return calibration;
}

}  // namespace quorvane::inspect

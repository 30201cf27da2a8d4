#include "inspect/measure/calibration.h"

#include <gtest/gtest.h>

#include <cmath>
#include <random>

#include "inspect/measure/logistic_curve.h"

namespace quorvane::inspect {
namespace {

// Samples whose outcomes follow the curve of `steepness`, a third of them drawn where that keeps the mean
// score.
Predictions madeOnCurve(double steepness, std::size_t samples) {
  std::mt19937 random(7);
  Predictions measured;
  for (std::size_t sample = 0; sample < samples; ++sample) {
    const double value = static_cast<double>(random() % 8001) / 100.0 - 40.0;
    const double score = expectedScore(steepness, value);
    const double drawn = std::min({1.0 / 3.0, 2.0 * score, 2.0 * (1.0 - score)});
    const double dice = static_cast<double>(random()) / 0x1p32;
    const int outcome = dice < drawn ? 0 : dice < score + drawn / 2.0 ? 1 : -1;
    measured.push_back({value, 0, outcome, 0, 0});
  }
  return measured;
}

TEST(LogisticCurve, FindsTheSteepnessThatTheScoresWereMadeWith) {
  for (const double steepness : {0.01, 0.1, 2.0}) {
    std::vector<ScoredValue> exact;
    for (double value = -50.0; value <= 50.0; ++value)
      exact.push_back({value, expectedScore(steepness, value)});
    EXPECT_NEAR(fitSteepness(exact), steepness, 1e-4 * steepness);
  }
  EXPECT_DOUBLE_EQ(logLoss(0.0, {17.0, 0.5}), std::log(2.0));
  EXPECT_NEAR(logLoss(1.0, {-800.0, 1.0}), 800.0, 1e-9);
}

TEST(LogisticCurve, NeverFallsAndEndsWhereTheSignTellsAll) {
  EXPECT_EQ(fitSteepness({{5.0, 0.0}, {-3.0, 1.0}}), 0.0);
  EXPECT_EQ(fitSteepness({{0.0, 1.0}, {0.0, 0.5}}), 0.0);
  EXPECT_EQ(fitSteepness({}), 0.0);
  const double steepness = fitSteepness({{5.0, 1.0}, {-3.0, 0.0}, {1e-3, 1.0}});
  EXPECT_TRUE(std::isfinite(steepness));
  EXPECT_GT(expectedScore(steepness, 3.0), 0.99);
}

TEST(Calibration, LearnsACurveForEachTypeAndTakesThatOfAllWhereSamplesAreFew) {
  Validation validation;
  for (const auto& [type, steepness, samples] :
       {std::tuple(7, 0.05, 20000U), std::tuple(8, 0.2, 20000U), std::tuple(9, 0.2, 900U)}) {
    validation.byType[type] = madeOnCurve(steepness, samples);
    validation.patterns[type] = 1;
  }
  validation.worth[8][knightKind][9].add(2.0);
  validation.worth[8][knightKind][50].add(4.0);
  const Calibration calibration = calibrate("network.dat", {}, validation);
  EXPECT_NEAR(calibration.types[7].steepness, 0.05, 0.002);
  EXPECT_NEAR(calibration.types[8].steepness, 0.2, 0.008);
  EXPECT_TRUE(calibration.types[9].curveOfAllTypes);
  EXPECT_EQ(calibration.types[9].steepness, calibration.steepnessOfAllTypes);
  EXPECT_NEAR(*calibration.expectedScore(7, 20.0), 1.0 / (1.0 + std::exp(-1.0)), 0.02);
  EXPECT_EQ(calibration.expectedScore(6, 20.0), std::nullopt);
  EXPECT_EQ(calibration.types[8].meanWorth[knightKind], 3.0);
  EXPECT_EQ(calibration.types[8].meanWorth[rookKind], std::nullopt);
  for (const Band& band : calibration.types[7].bands) {
    EXPECT_NEAR(band.won + band.drawn + band.lost, 1.0, 1e-9);
    EXPECT_NEAR(band.meanScore(), *calibration.expectedScore(7, band.meanValue), 0.04);
  }
}

}  // namespace
}  // namespace quorvane::inspect

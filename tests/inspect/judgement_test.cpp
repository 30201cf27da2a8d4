#include "inspect/measure/judgement.h"

#include <gtest/gtest.h>

#include <cmath>

namespace quorvane::inspect {
namespace {

constexpr PositionType type = 8;

// Samples whose targets are 10 for each pawn ahead, won by the side that is ahead; the network says `factor` times that.
Validation validation(double factor, int outcomes = 1) {
  Validation made;
  for (int pawns = -5; pawns <= 5; ++pawns) {
    const int outcome = outcomes * (pawns > 0 ? 1 : pawns < 0 ? -1 : 0);
    made.byType[type].add({factor * 10.0 * pawns, 10 * pawns, outcome, 1000 * pawns, 0});
  }
  made.patterns[type] = 40;
  made.all = made.byType[type];
  return made;
}

std::string verdictOn(const Validation& made) {
  return verdict(made, judge(made, calibrate("network.dat", {}, made)));
}

TEST(Judgement, FitsMaterialAndSumsScoresUp) {
  const Validation made = validation(0.5);
  const Judgement judgement = judge(made, calibrate("network.dat", {}, made));
  const Figures& figures = judgement.byType[type];
  EXPECT_NEAR(figures.material.squares, 0.0, 1e-9);  // the factor 0.01 meets every target
  EXPECT_DOUBLE_EQ(figures.zeros.squares, 11000.0);
  EXPECT_DOUBLE_EQ(figures.network.squares, 2750.0);
  EXPECT_EQ(figures.decided, 10U);
  EXPECT_EQ(figures.network.right, 10.0);
  EXPECT_EQ(figures.zeros.right, 5.0);  // 0 is half right
  EXPECT_DOUBLE_EQ(figures.zeros.logLoss, 11.0 * std::log(2.0));
  EXPECT_DOUBLE_EQ(figures.zeros.brier, 2.5);
  EXPECT_LT(figures.network.logLoss, 1.0);
  EXPECT_EQ(judgement.all.samples, 11U);
  EXPECT_EQ(judgement.scoreBands[5].samples, 1U);  // the value 0
  EXPECT_EQ(judgement.scoreBands[5].score, 0.5);
}

TEST(Judgement, SaysWhatThereIsToSayAlsoIfItIsBad) {
  EXPECT_EQ(
      verdictOn(validation(0.5)),
      "Learned something in the one type: f(w) 75 % below that of zeros, far above that of material; right "
      "about the winner in 100 % of the positions where material says 100 %.");
  EXPECT_EQ(verdictOn(validation(-1.0)).substr(0, 91),
            "Learned nothing that holds on these games, in the one type: f(w) 300 % above that of zeros,");
  EXPECT_NE(verdictOn(validation(0.5, 0)).find("All of these games were drawn."), std::string::npos);
  Validation without = validation(0.0);
  without.patterns[type] = 0;
  EXPECT_EQ(verdictOn(without), "The network has no patterns for any position of these games.");
  Validation mixed = validation(0.5);
  mixed.byType[11] = validation(-1.0).byType[type];
  mixed.patterns[11] = 1;
  EXPECT_EQ(verdictOn(mixed).substr(0, 46), "Learned something in 1 of 2 types (not in 11):");
}

}  // namespace
}  // namespace quorvane::inspect

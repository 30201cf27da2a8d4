#include "inspect/measure/validation.h"

#include "inspect/inspect_fixture.h"
#include "inspect/common/network_reader.h"

namespace quorvane::inspect {
namespace {

class Validate : public InspectTest {};

TEST_F(Validate, GamesThatWereLearnedGiveTheFiguresThatTheUtilityPrinted) {
  const std::string learned = learn();
  networkTable = readNetwork("network.dat");
  const Validation validation = validateOn({"few.pgn"}, [](auto&&...) {});
  std::size_t at = 0;
  const auto next = [&](const std::string& label) {
    at = learned.find(label, at) + label.size();
    return std::stod(learned.substr(at));
  };
  for (PositionType type = firstLearnedType; type <= lastPositionType; ++type) {
    EXPECT_EQ(next("Fitting weights of positiontype "), type);
    const Measurement& measured = validation.byType[type];
    const auto expectNext = [&](const std::string& label, double sum) {
      const double printed = next(label);
      EXPECT_NEAR(sum / static_cast<double>(measured.samples()), printed, 1e-4 * printed) << label << type;
    };
    expectNext("f(w)=", measured.zeros().squares);
    expectNext("Mean error: ", measured.zeros().absolutes);
    expectNext("Hit percentage: ", 100.0 * static_cast<double>(measured.network().hits));
    expectNext("f(w)=", measured.network().squares);
    expectNext("Mean error: ", measured.network().absolutes);
  }
}

TEST(Measurement, SortsSamplesIntoTenthsAndCountsSignsOfDecidedGames) {
  Measurement measured;
  for (int value = 24; value >= 0; --value) measured.add({value - 12.0, 2 * value, value % 3 - 1, 0, 0});
  const std::vector<Band> bands = measured.bands();
  ASSERT_EQ(bands.size(), 10U);
  EXPECT_EQ(bands[0].samples + bands[1].samples, 5U);
  EXPECT_EQ(bands[0].lowest, -12.0);
  EXPECT_EQ(bands[9].highest, 12.0);
  EXPECT_DOUBLE_EQ(bands[9].meanValue, 11.0);
  EXPECT_DOUBLE_EQ(bands[9].meanTarget, 46.0);
  EXPECT_EQ(measured.decided(), 17U);
  // Lost ones below 12: 0, 3, 6, 9; won ones above: 14, 17, 20, 23. The value 0 agrees with nobody.
  EXPECT_EQ(measured.agreeing(), 8U);
}

}  // namespace
}  // namespace quorvane::inspect

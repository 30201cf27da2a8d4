#include "inspect/validation.h"

#include <regex>

#include "inspect/inspect_fixture.h"
#include "inspect/network_reader.h"

namespace quorvane {
namespace {

class Validate : public InspectTest {};

TEST_F(Validate, GamesThatWereLearnedGiveTheFiguresThatTheUtilityPrinted) {
  const std::string learned = learn();
  networkTable = readNetwork("network.dat");
  const Validation validation = validateOn({"few.pgn"}, [](auto&&...) {});
  const std::regex fit(
      "positiontype (\\d+)[^=]*f\\(w\\)=(\\S+)  Mean error: (\\S+)\n[^:]*: (\\S+)%\\s*f\\(w\\)=(\\S+)  Mean "
      "error: (\\S+)");
  std::int32_t types = 0;
  for (std::sregex_iterator match(learned.begin(), learned.end(), fit), end; match != end; ++match, ++types) {
    const Measurement& measured = validation.byType[std::stoi(match->str(1))];
    const auto expectPrinted = [&](int group, double sum) {
      const double printed = std::stod(match->str(static_cast<std::size_t>(group)));
      EXPECT_NEAR(sum / static_cast<double>(measured.samples()), printed, 1e-4 * printed) << match->str(1);
    };
    expectPrinted(2, measured.zeros().squares);
    expectPrinted(3, measured.zeros().absolutes);
    expectPrinted(4, 100.0 * static_cast<double>(measured.network().hits));
    expectPrinted(5, measured.network().squares);
    expectPrinted(6, measured.network().absolutes);
  }
  EXPECT_EQ(types, 8);
}

TEST(Measurement, SortsSamplesIntoTenthsAndCountsSignsOfDecidedGames) {
  Measurement measured;
  for (int value = 24; value >= 0; --value) measured.add(value - 12, 2 * value, value % 3 - 1);
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
}  // namespace quorvane

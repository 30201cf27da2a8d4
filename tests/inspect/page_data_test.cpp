#include "inspect/report/page_data.h"

#include "inspect/report/game_choice.h"
#include "inspect/inspect_fixture.h"
#include "inspect/common/network_reader.h"
#include "pgn/pgn_game.h"

namespace quorvane::inspect {
namespace {

// Values of one type, all of which promise 0.8 points; each game has one sample.
Validation validationOf(std::initializer_list<std::int32_t> outcomes) {
  Validation validation;
  std::uint32_t game = 0;
  for (const std::int32_t outcome : outcomes) validation.byType[6].add({10.0, 0, outcome, 0, game++});
  return validation;
}

Calibration calibrationOfType6() {
  Calibration calibration;
  calibration.types[6].hasPatterns = true;
  calibration.types[6].steepness = 0.14;
  return calibration;
}

TEST(ChooseGames, TakesTheWorstForeseenFirstAndThenFromAllOthersToTheBest) {
  const Validation validation = validationOf({1, 0, -1, 0, 1, -1, 1, 1, 1});
  const auto choose = [&](std::size_t count) { return chooseGames(validation, calibrationOfType6(), count); };
  EXPECT_EQ(choose(4), (std::vector<std::uint32_t>{2, 5, 0, 8}));
  EXPECT_EQ(choose(9), (std::vector<std::uint32_t>{2, 5, 1, 3, 0, 4, 6, 7, 8}));
  EXPECT_EQ(choose(100), choose(9));
  EXPECT_EQ(chooseGames(validation, Calibration(), 4), std::vector<std::uint32_t>());
}

class PageData : public InspectTest {};

TEST_F(PageData, GamesAreThoseOfTheFilesWithTheMovesThatWerePlayed) {
  learn();
  networkTable = readNetwork("network.dat");
  std::ofstream("odd.pgn") << "[White \"A\"] 1. e4 *\n"
                              "[White \"B \"quoted\"\"][Black \"C\"] 1. e4 e5 2. Nf3 Nc6 3. Qh6 d6 1-0\n"
                              "[FEN \"4k3/8/8/8/8/8/4P3/4K3 w\"] 1. e4 Kd7 0-1\n";
  const std::vector<GameTrail> trails = followGames({"odd.pgn"}, {1, 0, 7});
  ASSERT_EQ(trails.size(), 2U);
  EXPECT_EQ(trails[0].number, 3);
  EXPECT_EQ(trails[0].steps.size(), 3U);
  EXPECT_EQ(trails[1].white, "B \"quoted\"");
  EXPECT_EQ(trails[1].black, "C");
  EXPECT_EQ(trails[1].result, whiteWon);
  EXPECT_EQ(trails[1].steps.size(), 5U);  // the queen cannot go to h6
  EXPECT_EQ(trails[1].steps[3].move, "Nf3");
  EXPECT_EQ(trails[1].steps[3].to, squareAt(2, 5));

  const Json data = pageData({"network.dat", {"few.pgn"}, {}, {}, trails}, networkTable);
  const Json& steps = data["games"][0]["steps"];
  EXPECT_EQ(steps[0]["board"], "....K.......P" + std::string(47, '.') + "k...");
  EXPECT_EQ(steps[0]["words"].size(), 3U);
  EXPECT_TRUE(steps[0]["squares"].is_null());
  EXPECT_EQ(steps[2]["squares"], Json({60, 51}));
  EXPECT_EQ(data["learnedFrom"], Json({"few.pgn"}));
  EXPECT_GT(data["written"], 1'500'000'000);
  EXPECT_TRUE(data["validation"].is_null() && data["calibration"].is_null());
  EXPECT_TRUE(pageData({"gone.dat", {}, {}, {}, {}}, networkTable)["written"].is_null());
}

}  // namespace
}  // namespace quorvane::inspect

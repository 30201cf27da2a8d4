#include <sstream>

#include "inspect/inspect_fixture.h"

namespace quorvane::inspect {
namespace {

// What the commands print for people, compared with inspect/expected/NAME.txt. With QUORVANE_APPROVE set in the
// environment that file is written instead.
class InspectText : public InspectTest {
 protected:
  static void expectText(const std::string& name, const std::string& arguments) {
    const Outcome outcome = inspect(arguments);
    EXPECT_EQ(outcome.status, 0) << outcome.errors;
    const std::string expected = QUORVANE_TEST_SOURCE_DIR "/inspect/expected/" + name + ".txt";
    if (std::getenv("QUORVANE_APPROVE") != nullptr) std::ofstream(expected) << outcome.output;
    EXPECT_EQ(outcome.output, textOfFile(expected));
    std::istringstream lines(outcome.output);
    for (std::string line; std::getline(lines, line);) EXPECT_LE(line.size(), 80U) << line;
  }
};

TEST_F(InspectText, ReadsWellIn80Columns) {
  learn();
  std::filesystem::copy("network.dat", "other.dat");
  const std::string odd =
      "[White \"Short, N\"] [Black \"Long,\nK\"] 1. e4 e5 1/2-1/2 [Event \"x\"] 1. e4 e5 2. Ke3 0-1 "
      "[White \"Zero\"] [Black \"Nought\"] 1. e4 e5 2. Nf3 Nc6 3. Bb5 a6 4. Ba4 Nf6 5. 0-0 Be7 6. Re1 1-0";
  std::ofstream("odd.pgn") << odd;
  expectText("explain-uncalibrated", "explain --fen '8/5k2/4p1p1/3pP3/3B1P2/4K3/8/8 w' --top 2");
  expectText("validate", "validate few.pgn --calibration network.dat.calibration.json");
  expectText("explain", "explain --pgn few.pgn --game 3 --ply 31");
  expectText("games", "games few.pgn odd.pgn");
  std::filesystem::rename("few.pgn", "more.pgn");
  std::ofstream("few.pgn") << textOfFile("more.pgn").substr(0, 20000);
  learn();
  expectText("compare", "compare other.dat network.dat more.pgn");
  expectText("compare-same", "compare other.dat other.dat few.pgn");
}

}  // namespace
}  // namespace quorvane::inspect

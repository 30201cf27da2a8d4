#include "inspect/games/game_report.h"

#include <sstream>

#include "inspect/inspect_fixture.h"

namespace quorvane::inspect {
namespace {

class GameReport : public InspectTest {
 protected:
  // What is odd about one game, as "reason ply token", with "+" in front if it gave samples.
  static std::string oddity(const std::string& moves, const std::string& tags = "[White \"W\"]") {
    std::ofstream("game.pgn") << tags << '\n' << moves << '\n';
    const FileReport report = reportGames("game.pgn", [](auto&&...) {});
    EXPECT_EQ(report.tally.games, 1U);
    if (report.odd.empty()) return "";
    const GameVerdict& verdict = report.odd[0].verdict;
    std::ostringstream text;
    text << (verdict.samples != 0 ? "+" : "") << oddityName(verdict.oddity) << ' ' << verdict.ply << ' '
         << verdict.token;
    return text.str();
  }
};

const std::string elevenPlies = "1. e4 e5 2. Nf3 Nc6 3. Bb5 a6 4. Ba4 Nf6 5. O-O Be7 6. Re1 ";

TEST_F(GameReport, TellsWhyAGameGaveNothingOrNotAll) {
  EXPECT_EQ(oddity(elevenPlies + "1-0"), "");
  EXPECT_EQ(oddity(elevenPlies), "noResult 0 ");
  EXPECT_EQ(oddity(elevenPlies + "*"), "noResult 0 ");
  EXPECT_EQ(oddity("1. e4 e5 2. Nf3 Nc6 3. Bb5 a6 4. Ba4 Nf6 5. O-O Be7 1-0"), "tooShort 10 ");
  EXPECT_EQ(oddity(elevenPlies + "Qd4 1-0"), "noPiece 12 Qd4");
  EXPECT_EQ(oddity(elevenPlies + "b5+ 7. O-O+ 1-0"), "+unreadableToken 13 O-O+");
  EXPECT_EQ(oddity("1. e4 e.p. 1-0"), "unreadableToken 2 e.p.");
  EXPECT_EQ(oddity(elevenPlies + "1-0 e.p."), "");  // behind the result
  EXPECT_EQ(oddity("1. e4 e5 2. Nf3 Nc6 3. Bb5 a6 4. Ba4 Nf6 5. 0-0 Be7 6. Re1 b5 1-0"),
            "castlingWithZeros 9 0-0");
  EXPECT_EQ(oddity(elevenPlies + "0-0 7. h3 h6 8. a3 a5 1-0"), "castlingWithZeros 12 0-0");
  EXPECT_EQ(oddity("1. e4 e5 2. Qh5 Nc6 3. Qxe5 h6 4. h3 g6 1-0"), "kingInCheck 6 h6");
}

TEST_F(GameReport, TellsThePinnedPieceThatComesFirst) {
  // The rook on d2 is pinned; the other one could go there, and is met first or not.
  const std::string odd = oddity("1. Rd1 1-0", "[FEN \"4k3/8/8/8/1b6/8/3R4/R3K3 w\"]") + ", " +
                          oddity("1. Rd3 1-0", "[FEN \"4k3/8/8/8/1b6/R7/3R4/4K3 w\"]");
  EXPECT_EQ(odd, "tooShort 1 , firstPiecePinned 1 Rd3");
  EXPECT_EQ(oddity("1. Rd3 1-0", "[FEN \"4k3/8/8/8/1b6/8/3R4/4K3 w\"]"), "kingInCheck 1 Rd3");
  EXPECT_EQ(oddity("1. Kd2 1-0", "[FEN \"4k3/8/8/8/8/8/8/K3R3 w\"]"), "opponentInCheck 1 Kd2");
}

TEST_F(GameReport, TellsLongGames) {
  std::string moves;
  for (int turn = 0; turn < 100; ++turn) moves += "Nf3 Nf6 Ng1 Ng8 ";
  EXPECT_EQ(oddity(moves + "1-0"), "tooLong 399 Ng1");
}

TEST_F(GameReport, CountsGamesAndSamplesAsTheUtilityDoes) {
  const std::string learned = learn();
  const FileReport report = reportGames("few.pgn", [](auto&&...) {});
  EXPECT_EQ(report.tally.games, 60U);
  const std::size_t dots = learned.find("games: ") + 7;
  EXPECT_EQ(report.tally.withResult, learned.find(' ', dots) - dots);
  std::size_t samples = 0;
  for (std::size_t at = 0; (at = learned.find("Number of positions of type ", at)) != std::string::npos;) {
    at = learned.find(": ", at) + 2;
    samples += std::stoul(learned.substr(at));
  }
  EXPECT_GE(report.tally.samples, samples);  // those of the special endings are not printed
  EXPECT_LT(report.tally.samples, samples + samples / 20);
}

}  // namespace
}  // namespace quorvane::inspect

#include "play/search/search.h"

#include <gtest/gtest.h>

#include <fstream>

#include "play/position/move_text.h"
#include "play/search/exchange.h"
#include "support/files.h"

namespace quorvane::play {
namespace {

class Uninterested : public Onlooker {
 public:
  bool endsNow(std::uint64_t) override { return false; }
  bool isEnough(const Finding&) override { return false; }
};

// A search by material alone.
class PlaySearch : public testing::Test {
 protected:
  Finding find(const Position& position, const Goal& goal, const std::vector<std::uint64_t>& earlier = {}) {
    table.clear();
    search.clear();
    return search.run(position, earlier, goal, onlooker);
  }
  static Goal nodes(std::uint64_t count) {
    Goal goal;
    goal.nodes = count;
    return goal;
  }
  std::string bestMove(const std::string& fen, std::uint64_t count = 20'000) {
    return coordinates(find(Position(fen), nodes(count)).line[0]);
  }

  Knowledge knowledge;
  Judge judge{knowledge};
  TranspositionTable table{4};
  Search search{judge, table};
  Uninterested onlooker;
};

TEST_F(PlaySearch, FindsTheShortestMates) {
  std::ifstream lines(projectFile("tests/play/mates.txt"));
  std::int32_t positions = 0;
  for (std::string line; std::getline(lines, line);) {
    const std::size_t end = line.find(" |");
    if (line.starts_with('#') || end == std::string::npos) continue;
    const std::int32_t moves = std::stoi(line.substr(end + 2));
    Goal goal = nodes(2'000'000);
    goal.mateInMoves = moves;
    const Finding found = find(Position(line.substr(0, end)), goal);
    EXPECT_EQ(found.score, mateScore - (2 * moves - 1)) << line;
    EXPECT_EQ(movesToMate(found.score), moves);
    ++positions;
  }
  EXPECT_EQ(positions, 54);
}

TEST_F(PlaySearch, LinesOfMovesAreLegalAndEndInTheMate) {
  Position position("r1b1kb1r/pppp1ppp/5q2/4n3/3KP3/2N3PN/PPP4P/R1BQ1B1R b kq - 0 1");  // mate in 3
  Goal goal = nodes(1'000'000);
  goal.mateInMoves = 3;
  const Finding found = find(position, goal);
  ASSERT_EQ(movesToMate(found.score), 3);
  for (const Move move : found.line) {
    ASSERT_TRUE(moveOf(position, coordinates(move)));
    position.make(move);
  }
  EXPECT_EQ(found.line.size(), 5U);
  EXPECT_TRUE(position.inCheck() && legalMoves(position).empty());
}

TEST_F(PlaySearch, ProvesSmallEndingsByTheRules) {
  // The only move that wins, or that holds; who knows the rules alone finds it.
  EXPECT_EQ(bestMove("8/5P1k/5K2/8/8/8/8/8 w - -"), "f7f8r");      // a queen stalemates
  EXPECT_EQ(bestMove("8/2q1P1k1/8/8/8/8/P7/3K4 w - -"), "e7e8n");  // forks king and queen
  EXPECT_EQ(bestMove("7k/8/6K1/5Q2/7r/8/8/8 b - -"), "h4h6");      // stalemate or nothing
}

TEST_F(PlaySearch, KnowsWhatIsDrawn) {
  // A rook down, with a check that goes on for ever.
  EXPECT_EQ(find(Position("6k1/6p1/8/7Q/8/1q6/r7/6K1 w - - 0 1"), nodes(50'000)).score, 0);
  // At the hundredth halfmove nothing counts but mate.
  EXPECT_EQ(find(Position("7k/8/8/8/8/8/1R6/K7 w - - 99 80"), nodes(5'000)).score, 0);
  EXPECT_EQ(movesToMate(find(Position("7k/R7/8/8/8/8/1R6/K7 w - - 99 80"), nodes(5'000)).score), 1);
  EXPECT_GT(find(Position("7k/8/8/8/8/8/PR6/K7 w - - 99 80"), nodes(5'000)).score, 300);
  EXPECT_EQ(find(Position("7k/8/8/8/8/8/8/KB6 w - - 0 1"), nodes(5'000)).score, 0);
  EXPECT_EQ(find(Position("k7/2Q5/8/8/8/8/8/K7 b - - 0 1"), nodes(100)).score, 0);
  EXPECT_TRUE(find(Position("k7/2Q5/8/8/8/8/8/K7 b - - 0 1"), nodes(100)).line.empty());
}

TEST_F(PlaySearch, TakesARepetitionOfTheGameForADraw) {
  // White is lost but for the third time.
  Position position("6k1/5ppp/8/8/8/q7/6PP/7K w - - 0 1");
  std::vector<std::uint64_t> earlier;
  for (const char* const move :
       {"h1g1", "g8h8", "g1h1", "h8g8", "h1g1", "g8h8", "g1h1", "h8g8", "h1g1", "g8h8"}) {
    earlier.push_back(position.key);
    position.make(moveOf(position, move));
  }
  const Finding found = find(position, nodes(20'000), earlier);
  EXPECT_EQ(coordinates(found.line[0]), "g1h1");
  EXPECT_EQ(found.score, 0);
  EXPECT_LT(find(position, nodes(20'000)).score, -500);
}

TEST_F(PlaySearch, TheSameGoalGivesTheSameFinding) {
  const Position position("r2q1rk1/ppp2ppp/2np1n2/2b1p3/2B1P1b1/2NP1N2/PPP2PPP/R1BQ1RK1 w - - 0 8");
  const Finding first = find(position, nodes(30'000));
  const Finding second = find(position, nodes(30'000));
  EXPECT_EQ(first.nodes, 30'000U);
  EXPECT_EQ(first.line, second.line);
  EXPECT_EQ(first.score, second.score);
  Goal among = nodes(1'000);
  among.amongMoves = {moveOf(position, "h2h3")};
  EXPECT_EQ(coordinates(find(position, among).line[0]), "h2h3");
}

// Whatever is left out, the search finds the same mates; devices change how fast.
TEST_F(PlaySearch, NoDeviceChangesWhatIsTrue) {
  const Position position("6k1/pp4p1/2p5/2bp4/8/P5Pb/1P3rrP/2BRRN1K b - - 0 1");  // mate in 2
  for (const auto& [name, device] : deviceNames) {
    Goal goal = nodes(3'000'000);
    goal.devices = allDevices & ~std::uint32_t{device};
    goal.mateInMoves = 2;
    EXPECT_EQ(movesToMate(find(position, goal).score), 2) << name;
  }
}

TEST(PlayExchange, AddsUpWhatBothSidesTake) {
  const auto gain = [](const std::string& fen, const std::string& move) {
    const Position position(fen);
    return exchangeGain(position, moveOf(position, move));
  };
  EXPECT_EQ(gain("1k1r4/1pp4p/p7/4p3/8/P5P1/1PP4P/2K1R3 w - -", "e1e5"), 100);
  EXPECT_EQ(gain("1k1r3q/1ppn3p/p4b2/4p3/8/P2N2P1/1PP1R1BP/2K1Q3 w - -", "d3e5"), -200);
  // The rook behind the rook takes part.
  EXPECT_EQ(gain("4r1k1/8/8/4p3/8/8/4R3/4R1K1 w - -", "e2e5"), 100);
  EXPECT_EQ(gain("4r1k1/4r3/8/4p3/8/8/4R3/4R1K1 w - -", "e2e5"), -400);
  // A king does not take what is covered.
  EXPECT_EQ(gain("8/8/3k4/4p3/8/8/4R3/4R1K1 w - -", "e2e5"), 100);
  EXPECT_EQ(gain("8/8/3k4/4p3/8/8/4R3/6K1 w - -", "e2e5"), -400);
  EXPECT_EQ(gain("4k3/8/8/3pP3/8/8/8/4K3 w - d6", "e5d6"), 100);
  EXPECT_EQ(gain("4k3/2p5/8/3pP3/8/8/8/4K3 w - d6", "e5d6"), 0);
  EXPECT_EQ(gain("3r2k1/4P3/8/8/8/8/8/4K3 w - -", "e7d8q"), 1300);
  EXPECT_EQ(gain("r5k1/4P3/8/8/8/8/8/4K3 w - -", "e7e8q"), -100);
}

}  // namespace
}  // namespace quorvane::play

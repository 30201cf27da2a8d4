#include "inspect/explain/explanation.h"

#include <algorithm>
#include <cmath>

#include "board/board_fen.h"
#include "configurations/bit_names.h"
#include "configurations/configuration_word.h"
#include "configurations/side_configurations.h"
#include "inspect/common/network_reader.h"
#include "inspect/inspect_fixture.h"
#include "network/network.h"

namespace quorvane::inspect {
namespace {

class Explain : public InspectTest, public Position {
 protected:
  // What the library says of the position on the board.
  double evaluated() {
    Network network(Network::TableAsItStands{});
    network.classifyPosition(Network::classifyBoard, false);
    Network::computeConfigurations();
    const SideConfigurations own(kings[currentMove.sideToMove]);
    const SideConfigurations opposing(kings[opponent(currentMove.sideToMove)]);
    return network.evaluate(
        {{own.list().begin(), own.list().end()}, {opposing.list().begin(), opposing.list().end()}});
  }
};

TEST_F(Explain, PiecesSumToTheValueOfTheSampleInEveryLearnedType) {
  learn();
  networkTable = readNetwork("network.dat");
  PositionType type = firstLearnedType;
  for (const char* fen :
       {"8/5k2/4p1p1/3pP3/3B1P2/4K3/8/8 w", "8/2p2kp1/1p1r4/4p3/4P1P1/2P1R3/1P3K2/8 b",
        "2r3k1/pp3ppp/4p3/8/8/4P3/PP2BPPP/2R3K1 w", "3r2k1/pp3ppp/2n1p3/8/2P5/1P2PN2/PB1R1PPP/6K1 b",
        "2rq2k1/pp3ppp/4p3/8/8/1P2PN2/P4PPP/2RQ2K1 w", "2rq2k1/pp2bppp/2n1p3/8/8/1P2PN2/PB3PPP/2RQ2K1 b",
        "r2q1rk1/pp3ppp/2n1pn2/3p4/3P4/2N1PN2/PP3PPP/R2Q1RK1 w",
        "r1bqkb1r/pppp1ppp/2n2n2/4p3/2B1P3/5N2/PPPP1PPP/RNBQK2R b"}) {
    setFen(fen, Rules::chess);
    const Explanation explanation = explainPosition();
    EXPECT_EQ(explanation.type, type++);
    double total = 0.0;
    for (const ExplainedPiece& piece : explanation.pieces) {
      const auto strength = [](const FiringPattern& pattern) { return std::abs(pattern.weight); };
      EXPECT_TRUE(std::ranges::is_sorted(piece.patterns, std::greater(), strength));
      for (const FiringPattern& pattern : piece.patterns)
        total += static_cast<double>(piece.side == explanation.sideToMove ? pattern.weight : -pattern.weight);
    }
    const double value = evaluated();
    EXPECT_GT(std::abs(value), 0.01) << fen;
    // A value that a cache has kept was rounded to 32 bits.
    EXPECT_NEAR(total, value, 1e-4 * std::max(1.0, std::abs(value))) << fen;
    EXPECT_NEAR(explanation.total(), total, 1e-9) << fen;
  }
}

TEST_F(Explain, TakesPatternsForOneThatDifferByWhatAlwaysHolds) {
  NodeList& pawns = networkTable[6][pawnKind];
  const ConfigurationWord always = pawn_bits::ownPawnOnFile;
  pawns.push_back({pawn_bits::blocked, always, 1.5F, 2, 0, 0.0, 0.0, 0.0});
  pawns.push_back({pawn_bits::blocked | always, 0, -0.25F, 1, 0, 0.0, 0.0, 0.0});
  pawns.push_back({always, 0, 3.0F, 1, 0, 0.0, 0.0, 0.0});
  setFen("8/8/4k3/4p3/4P3/3BK3/8/8 w", Rules::chess);
  const Explanation explanation = explainPosition();
  for (const ExplainedPiece& piece : explanation.pieces) {
    if (piece.kind != pawnKind) continue;
    ASSERT_EQ(piece.patterns.size(), 2U);
    EXPECT_EQ(piece.patterns[0].mask, always);
    EXPECT_EQ(piece.patterns[1].mask, pawn_bits::blocked);
    EXPECT_EQ(piece.patterns[1].weight, 1.25);
  }
  // Both pawns have both: nothing is decided by them.
  EXPECT_EQ(explanation.total(), 0.0);
  EXPECT_EQ(decidingPatterns(explanation, 5)[0].weight, 0.0);
}

TEST_F(Explain, WritesTheFenOfThePositionOnTheBoard) {
  for (const char* fen : {"rnbqkbnr/pppppppp/8/8/8/8/PPPPPPPP/RNBQKBNR w KQkq - 0 1",
                          "r3k2r/8/8/3p4/8/8/8/1R2K2R b Kkq - 0 1", "8/8/4k3/4p3/4P3/3BK3/8/8 b - - 0 1"}) {
    EXPECT_EQ(setFen(fen, Rules::chess).fen, fen);
    EXPECT_EQ(BoardFen::text(), fen);
  }
  std::ofstream("game.pgn") << "[White \"A\"] 1. e4 Nf6 2. Ke2 a5 3. h4 1-0";
  const Origin origin = setGame("game.pgn", 1, 4);
  EXPECT_EQ(origin.fen, "rnbqkb1r/1ppppppp/5n2/p7/4P3/8/PPPPKPPP/RNBQ1BNR w kq a6 0 3");
  EXPECT_EQ(origin.move, "2... a5");
  EXPECT_EQ(origin.white, "A");
  EXPECT_EQ(setGame("game.pgn", 1, 5).move, "3. h4");
}

TEST(BitNames, TellEveryBitOfAKindApart) {
  EXPECT_EQ(patternName(13, rookKind, configurationBit(21) | configurationBit(3)),
            "enemy king within 2 files + attacked by a pawn");
  EXPECT_EQ(bitIdentifier(13, pawnKind, configurationBit(6)), "attackedByRook");
  EXPECT_EQ(bitIdentifier(4, pawnKind, configurationBit(6)), "outrunsEnemyKing");
  for (std::int32_t kind = 0; kind < pieceKindCount; ++kind) {
    for (const auto& names : {bitNames, bitIdentifiers}) {
      std::vector<std::string> all = names(13, kind, ~ConfigurationWord{0});
      std::ranges::sort(all);
      EXPECT_EQ(std::ranges::adjacent_find(all), all.end());
    }
    const std::vector<std::string> all = bitNames(13, kind, ~ConfigurationWord{0});
    const auto isNever = [](const std::string& name) { return name.starts_with("never set"); };
    EXPECT_EQ(std::ranges::count_if(all, isNever), (Table<int, pieceKindCount>{{1, 3, 3, 3, 2, 1}}[kind]));
  }
}

}  // namespace
}  // namespace quorvane::inspect

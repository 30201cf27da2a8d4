#include "inspect/explanation.h"

#include <algorithm>
#include <cmath>

#include "configurations/configuration_word.h"
#include "inspect/bit_names.h"
#include "inspect/inspect_fixture.h"
#include "inspect/network_reader.h"
#include "inspect/square_bits.h"
#include "learning/learner.h"
#include "learning/side_configurations.h"
#include "network/network.h"

namespace quorvane {
namespace {

class Explain : public InspectTest, public Position {
 protected:
  // What the library says of the position on the board.
  double evaluated() {
    Network network(Network::TableAsItStands{});
    network.classifyPosition(Network::classifyBoard, false);
    Network::computeConfigurations();
    const SideConfigurations own(kings[currentMove.sideToMove]);
    const SideConfigurations opposing(kings[1 - currentMove.sideToMove]);
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
    setFen(fen);
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

TEST_F(Explain, SquareBitsAreThoseOfAnyWordOfAPieceThere) {
  for (std::int32_t list = 0; list < placementListsPerSide; ++list) {
    const PieceKind kind = placementKinds[list];
    ConfigurationWord ofAnySquare = 0;
    for (Square square = 0; square < squareCount; ++square) ofAnySquare |= squareBits(kind, square);
    for (Square square = 0; square < 56; ++square) {
      if (square == 27 || (kind != kingKind && square == 3)) continue;
      Placement placement;
      placement.append(blackKingList, 27);
      if (kind != kingKind) placement.append(whiteKingList, 3);
      placement.append(placementListsPerSide + list, square);
      Learner::setupPosition(placement, white);
      Network::computeConfigurations();
      EXPECT_EQ(board[square]->configuration & ofAnySquare, squareBits(kind, square))
          << kind << " " << square;
    }
  }
}

TEST(BitNames, TellEveryBitOfAKindApart) {
  EXPECT_EQ(patternName(13, rookKind, configurationBit(21) | configurationBit(3)),
            "enemy king within 2 files + attackedByPawn");
  EXPECT_EQ(bitName(13, pawnKind, configurationBit(6)), "attackedByRook");
  EXPECT_EQ(bitName(4, pawnKind, configurationBit(6)), "outruns the enemy king");
  for (std::int32_t kind = 0; kind < pieceKindCount; ++kind) {
    std::vector<std::string> names = bitNames(13, kind, ~ConfigurationWord{0});
    std::ranges::sort(names);
    EXPECT_EQ(std::ranges::adjacent_find(names), names.end());
    const auto isNever = [](const std::string& name) { return name.starts_with("never set"); };
    EXPECT_EQ(std::ranges::count_if(names, isNever), (Table<int, pieceKindCount>{{1, 3, 3, 3, 2, 1}}[kind]));
  }
}

}  // namespace
}  // namespace quorvane

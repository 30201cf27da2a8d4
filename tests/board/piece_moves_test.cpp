#include "support/board_fixture.h"

namespace quorvane {
namespace {

using PieceMoves = BoardTest;

TEST_F(PieceMoves, GeneratorsAndTestsAgreeOnEverySquare) {
  playRandomGames([] { ASSERT_STREQ(BoardLaws::brokenByMoves(), nullptr) << "depth " << history->depth; });
}

TEST_F(PieceMoves, ComeDirectionByDirectionAndCastlingLast) {
  // The last six: castling on any rank; not in check, nor over attacked squares, but whatever else is
  // attacked; not over pieces; not from another file.
  const FenLines lines = {{"4k3/8/8/8/8/3p1p2/4P3/4K3 w", "e2 d3 f3 e3 e4"},
                          {"4k3/4p3/3P1P2/8/8/8/8/4K3 b", "e7 f6 d6 e6 e5"},
                          {"1n1n3k/2P5/8/8/8/8/8/4K3 w", "c7 b8 b8 d8 d8 c8 c8"},
                          {"4k3/8/8/8/3N4/8/8/4K3 w", "d4 f3 b3 e2 c2 b5 f5 c6 e6"},
                          {"4k3/8/1p6/8/3B4/8/5P2/4K3 w", "d4 c5 b6 e5 f6 g7 h8 e3 c3 b2 a1"},
                          {"4k3/8/8/3p4/1P1R1p2/8/8/4K3 w", "d4 e4 f4 c4 d5 d3 d2 d1"},
                          {"4k3/8/8/2ppp3/2PQp3/2PPp3/8/4K3 w", "d4 c5 e5 e3 e4 d5"},
                          {"8/4k3/8/8/R3K2R/8/8/8 w", "e4 f4 d5 e5 f5 d4 f3 e3 d3 g4 c4"},
                          {"4k3/8/8/8/4r3/8/8/R3K2R w", "e1 f1 d2 e2 f2 d1"},
                          {"4k3/8/8/8/3r1r2/8/8/R3K2R w", "e1 f1 d2 e2 f2 d1"},
                          {"4k3/8/8/8/1rr3rr/8/8/R3K2R w", "e1 f1 d2 e2 f2 d1 g1 c1"},
                          {"4k3/8/8/8/8/8/8/RN2K2B w", "e1 f1 d2 e2 f2 d1"},
                          {"4k3/8/8/8/8/8/8/1R3K1R w", "f1 g1 e2 f2 g2 e1"}};
  for (const auto& [fen, expected] : lines) {
    setUp(fen);
    EXPECT_EQ(expected.substr(0, 2) + moves(expected), expected) << fen;
  }
}

TEST_F(PieceMoves, KingOrRookThatHasMovedDoesNotCastle) {
  setUp("4k3/8/8/8/8/8/8/R3K2R w");
  EXPECT_TRUE(play("Ra2 Kd8 Ra1 Ke8"));
  EXPECT_EQ(moves("e1"), " f1 d2 e2 f2 d1 g1");
  EXPECT_TRUE(play("Kd1 Kd8 Ke1 Ke8"));
  EXPECT_EQ(moves("e1"), " f1 d2 e2 f2 d1");
}

}  // namespace
}  // namespace quorvane

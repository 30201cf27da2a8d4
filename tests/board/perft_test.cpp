#include "support/board_fixture.h"

namespace quorvane {

using Perft = BoardTest;

TEST_F(Perft, CountsArePublishedOnes) {
  const std::function<int(int)> leaves = [&](int depth) {
    if (depth == 0) return 1;
    int count = 0;
    for (const MoveRecord& move : allMoves()) {
      if (!makeIfLegal(move)) continue;
      count += leaves(depth - 1);
      unmakeMove();
    }
    return count;
  };
  const FenLines lines = {
      {"rnbqkbnr/pppppppp/8/8/8/8/PPPPPPPP/RNBQKBNR w", "20 400 8902 197281"},
      {"r3k2r/p1ppqpb1/bn2pnp1/3PN3/1p2P3/2N2Q1p/PPPBBPPP/R3K2R w", "48 2039 97862"},
      {"8/2p5/3p4/KP5r/1R3p1k/8/4P1P1/8 w", "14 191 2812 43238"},
      {"8/Pk6/8/8/8/8/6Kp/8 w", "11 97 887 8048 90606"},
      {"n1n5/PPPk4/8/8/8/8/4Kppp/5N1N b", "24 496 9483"},
      {"r3k2r/Pppp1ppp/1b3nbN/nP6/BBP1P3/q4N2/Pp1P2PP/R2Q1RK1 w", "6 264 9467"},
  };
  for (const auto& [fen, counts] : lines) {
    setUp(fen);
    std::istringstream text(counts);
    for (int count, depth = 1; text >> count; ++depth) EXPECT_EQ(leaves(depth), count) << fen;
  }
}

}  // namespace quorvane

#include "support/board_fixture.h"

namespace quorvane {
namespace {

using Configurations = BoardTest;

TEST_F(Configurations, WordsOfPawns) {
  expectWords({
      {"6k1/8/8/3p4/4P3/3P1P2/8/6K1 w", "e4 0 3 7 10 13 14 17 18 20 21 24 31"},
      {"6k1/8/8/3p4/4P3/3P1P2/8/6K1 b", "e4 0 3 7 10 13 14 16 17 18 20 21 24 31"},
      {"r3k3/1pp5/3K4/8/8/8/8/R7 w", "b7 0 16 17 18 19 21 22 29, c7 0 8 16 17 18 19 20 22 30"},
      {"r3k3/8/8/p7/P7/P7/8/4K2R w", "a3 0 2 17 19 23 28"},
      {"r3k3/8/8/8/8/8/8/P3K2R w", "a1 0 6 17 18 19"},  // no place on its own first rank
  });
}

TEST_F(Configurations, RaceOfTheKingsInAPawnEnding) {
  expectWords({
      {"2k5/8/P7/8/8/8/8/K7 w", "a6 0 13 14 17 18 19 26 28"},     // the enemy king is just in time
      {"3k4/8/P7/8/8/8/8/K7 w", "a6 0 6 13 14 17 18 19 26 28"},   // one step too late
      {"3k4/8/P7/8/8/8/8/K7 b", "a6 0 13 14 16 17 18 19 26 28"},  // but moves first
      {"5k2/8/8/8/8/8/P7/K7 w", "a2 0 13 14 15 17 18 19 22 28"},  // the double step is one move
      {"5k2/8/8/8/8/P7/8/K7 w", "a3 0 13 14 17 18 19 23 28"},
      {"8/8/8/8/K2k3P/8/8/8 w", "h4 0 17 18 19 24 28"},  // beside the pawn is neither ahead nor behind
      {"1k6/8/8/1K6/P7/8/8/8 w", "a4 0 7 13 15 17 18 19 24 28"},  // the enemy king is there first
      {"3k4/8/8/1K6/P7/8/8/8 w", "a4 0 13 15 17 18 19 24 28"},    // both at once
  });
}

TEST_F(Configurations, WordsOfPieces) {
  expectWords({
      {"rnbqkbnr/pppppppp/8/8/8/8/PPPPPPPP/RNBQKBNR w",
       "e2 11 12 14 15 17 20 21 22 31, g1 13 19 31, a1 19 31, e1 2 14 18 20 23 28, e8 2 14 16 18 20 23 28"},
      {"7k/8/5N2/8/8/8/8/K7 w", "f6 0 17 21 25 28"},
      {"6pk/7p/5N2/8/8/8/8/K7 w", "f6 0 17 21 28"},  // only free squares beside the king count
      {"7k/8/8/8/8/8/8/N3K3 w", "a1 0 19 22 31"},
      {"1k6/8/8/8/8/8/8/R3K3 w", "a1 0 19 20 21 25 31"},
      {"7k/8/5Q2/8/3Q4/8/1Q6/K7 w", "f6 0 14 17 21 24 28, d4 0 14 18 22 26, b2 0 14 15 19 20 23 30"},
      {"r2k4/8/R7/4K3/8/8/8/R7 w", "a1 0 13 19 31, a6 0 6 13 17 20 22 30, a8 1 6 16 19 20 31"},
      {"7k/8/8/8/8/8/PP6/K7 w", "a1 0 2 19 20 28, h8 1 16 19 28"},
      {"8/8/8/8/8/6k1/8/6K1 w", "g1 19 21 23 28, g3 16 17 21 23 29"},
      {"8/8/8/8/K1k5/8/8/8 b", "a4 8 16 18 25 28, c4 8 18 25 30"},
      {"8/8/8/3k4/K7/8/8/8 b", "a4 15 16 18 26 28, d5 15 18 26 31"},
      {"8/8/1k6/8/8/K7/8/8 w", "a3 17 22 24 28, b6 16 17 22 24 29"},
  });
}

TEST_F(Configurations, BlackToMoveTurnsNothingButTheMove) {
  expectWords({{"3qk2r/5ppp/2np4/2b5/4P3/3B1N2/4QPPP/4K2R b", "d1 13 16 18 29, c5 10 18 27"}},
              "O-O O-O Re8 Qd1");
}

}  // namespace
}  // namespace quorvane

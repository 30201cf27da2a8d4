#include "support/board_fixture.h"

namespace quorvane {

using GameMove = BoardTest;

TEST_F(GameMove, RefusalsLeaveThePosition) {
  // The king could be taken; check not answered; castling into check; none fits; a king would leave its ring;
  // the pinned knight stands first in the ring.
  const FenLines lines = {{"4k3/8/8/8/8/8/4Q3/4K3 w", "Qxe8"}, {"4k3/8/8/8/4r3/8/8/R3K3 w", "Ra4"},
                          {"4k3/8/8/8/6r1/8/8/4K2R w", "O-O"}, {"4k3/8/8/8/8/8/8/N3K3 w", "Nb4"},
                          {"4k3/8/8/8/8/8/8/N3K3 w", "N2b3"},  {"4k3/8/8/8/8/8/8/N3K3 w", "Nbb3"},
                          {"4k3/8/8/8/8/8/8/N3K3 w", "Kd1=Q"}, {"4k3/8/8/8/8/8/3N4/5KNr w", "Nf3"}};
  for (const auto& [fen, token] : lines) {
    setUp(fen);
    currentMove.status = 0;
    EXPECT_FALSE(play(token)) << token;
    EXPECT_EQ(currentMove.status, token == "Qxe8" ? statusOpponentInCheck : 0) << token;
    EXPECT_EQ(history->depth, 0) << token;
  }
}

TEST_F(GameMove, FirstRecordThatFitsIsMade) {
  setUp("4k3/8/8/8/8/8/3N4/5KN1 w");
  EXPECT_TRUE(play("Nf3"));
  EXPECT_EQ(at("d2").kind, knightKind) << "the knight that was created last comes first";
  setUp(usualStart + "w");
  EXPECT_TRUE(playGameMove(8, 8, 8, 8, knightKind, noPromotion));
  EXPECT_EQ(at("f3").kind, knightKind);
}

TEST_F(GameMove, CodePromotesWhateverMoves) {
  const std::pair<const char*, PieceKind> lines[] = {{"b8", queenKind},
                                                     {"bxa8=N", knightKind},
                                                     {"b8=B", bishopKind},
                                                     {"Nf3=R", rookKind},
                                                     {"e4=Q", queenKind}};
  for (const auto& [token, kind] : lines) {
    setUp("r6k/1P6/8/8/8/8/4P3/4K1N1 w");
    EXPECT_TRUE(play(token));
    EXPECT_EQ(history->record(1).movedPiece->kind, kind) << token;
    EXPECT_EQ(history->record(1).movedPiece->moveCount, 1) << token;
  }
}

TEST_F(GameMove, LastMoveIsThe398th) {
  setUp(usualStart + "w");
  while (play("Nf3 Nf6 Ng1 Ng8")) continue;
  EXPECT_EQ(history->depth, 398);
  EXPECT_EQ(currentMove.status, statusTooDeep);
}

TEST_F(GameMove, DestinationAloneTakesTheFirstRecordThatReachesIt) {
  playRandomGames([this] {
    const std::vector<MoveRecord> all = allMoves();
    for (const MoveRecord& move : all) {
      const PieceKind piece = board[move.from]->kind;
      const MoveRecord first = *std::ranges::find_if(all, [&](const MoveRecord& other) {
        return other.to == move.to && board[other.from]->kind == piece;
      });
      const bool legal = makeIfLegal(first);
      if (legal) unmakeMove();
      ASSERT_EQ(playGameMove(8, 8, rankOf(move.to), fileOf(move.to), piece, noPromotion), legal);
      if (!legal) continue;
      ASSERT_EQ(currentMove.from, first.from);
      ASSERT_EQ(currentMove.kind, first.kind);
      unmakeMove();
    }
  });
}

TEST_F(GameMove, FindsTheLastMoveOfFifteenQueens) {
  const std::string queens = "kr6/pp6/8/2QQQQQQ/2Q4Q/2Q4Q/2Q4Q/2QQQ1K1 w";
  setUp(queens);
  EXPECT_TRUE(playGameMove(4, 2, 7, 2, queenKind, noPromotion));
  setUp(queens);
  EXPECT_TRUE(playGameMove(4, 2, 8, 2, queenKind, noPromotion)) << "a search through all their records";
}

}  // namespace quorvane

#include <cstring>

#include "support/board_fixture.h"

namespace quorvane {
namespace {

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
    const std::vector<std::uint64_t> before = BoardLaws::state();
    EXPECT_FALSE(play(token)) << token;
    EXPECT_EQ(BoardLaws::state(), before) << token;
    EXPECT_EQ(currentMove.status, token == "Qxe8" ? statusOpponentInCheck : 0) << token;
  }
}

TEST_F(GameMove, FirstRecordThatFitsIsMade) {
  setUp("4k3/8/8/8/8/8/3N4/5KN1 w");
  EXPECT_TRUE(play("Nf3"));
  EXPECT_EQ(at("d2").kind, knightKind) << "the knight that was created last comes first";
  setUp(usualStart + "w");
  EXPECT_TRUE(playGameMove({.kind = knightKind}));
  EXPECT_EQ(at("f3").kind, knightKind);
}

TEST_F(GameMove, CastlingIsAlsoWrittenAsAMoveOfTheKing) {
  for (const auto& [token, rook] : FenLines{{"Kg1", "f1"}, {"Kc1", "d1"}, {"Ke1g1", "f1"}}) {
    setUp("4k3/8/8/8/8/8/8/R3K2R w");
    EXPECT_TRUE(play(token)) << token;
    EXPECT_EQ(at(rook).kind, rookKind) << token;
    EXPECT_EQ(history->record(1).undoKind, rook == "f1" ? castleKingSide : castleQueenSide) << token;
  }
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

TEST_F(GameMove, KingIsAttackedIfAnyPieceOfTheOtherSideCouldGoThere) {
  const auto anyCouldGoTo = [](const Piece& king) {
    const MoveRecord saved = currentMove;
    currentMove.to = king.square;
    bool found = false;
    for (Piece& piece : Ring(kings[opponent(king.side)])) {
      piece.testMove();
      found = found || currentMove.found;
    }
    currentMove = saved;
    return found;
  };
  std::int32_t checks = 0;
  playRandomGames([&] {
    for (Piece* const king : kings) {
      currentMove.found = true;
      const MoveRecord before = currentMove;
      const bool attacked = king->isAttacked();
      ASSERT_EQ(attacked, anyCouldGoTo(*king));
      ASSERT_EQ(std::memcmp(&before, &currentMove, sizeof before), 0);
      checks += attacked;
    }
    for (const char* files : {"O-O", "O-O-O"}) {  // the king steps on the board for a moment
      if (play(files)) unmakeMove();
      expectInvariants();
    }
  });
  EXPECT_GT(checks, 100);
}

TEST_F(GameMove, FindsTheLastMoveOfFifteenQueens) {
  const std::string queens = "kr6/pp6/8/2QQQQQQ/2Q4Q/2Q4Q/2Q4Q/2QQQ1K1 w";
  setUp(queens);
  EXPECT_TRUE(playGameMove({4, 2, 7, 2, queenKind}));
  setUp(queens);
  EXPECT_TRUE(playGameMove({.fromRank = 4, .fromFile = 2, .toFile = 2, .kind = queenKind}))
      << "a search through all their records";
}

}  // namespace
}  // namespace quorvane

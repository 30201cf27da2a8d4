#include <iomanip>
#include <set>

#include "support/board_fixture.h"

namespace quorvane {
namespace {

using MakeMove = BoardTest;
using HashKeys = BoardTest;

TEST_F(MakeMove, EveryMoveIsTakenBackExactly) {
  // Both of the history and of the placement, which move alike.
  const auto key = [] {
    std::uint32_t xored = *hashState->indexTop;
    for (Square square = 0; square < squareCount; ++square)
      xored ^= hashState->indexKeys[square][board[square]->keyIndex];
    return xored;
  };
  std::set<std::int32_t> kindsMade;
  playRandomGames([&] {
    const std::vector<std::uint64_t> before = BoardLaws::state();
    const std::uint32_t keyBefore = key();
    for (const MoveRecord& move : allMoves()) {
      currentMove = move;
      makeMove();
      expectInvariants();
      EXPECT_EQ(key(), keyBefore);
      EXPECT_EQ(*hashState->slotTop, *hashState->indexTop & 0x7ffff);
      kindsMade.insert(history->record(history->depth).undoKind);
      unmakeMove();
      ASSERT_EQ(BoardLaws::state(), before) << "move " << move.from << " to " << move.to;
    }
  });
  EXPECT_EQ(kindsMade.size(), 8U) << "the games leave a kind of move out";
}

TEST_F(MakeMove, SetUpOrdersThePiecesAndLeavesNothingOfTheLastGame) {
  setUp("4k3/1P6/8/8/8/8/8/4K2R w");
  EXPECT_TRUE(play("O-O Kd7 b8=Q"));
  setUp(usualStart + "b");
  std::istringstream squares("e1d1b1g1c1f1a1h1a2b2c2d2e2f2g2h2e8d8b8g8c8f8a8h8a7b7c7d7e7f7g7h7");
  std::string square;
  for (std::int32_t id = 15; squares >> std::setw(2) >> square; --id)
    EXPECT_EQ(at(square).id, id & 31) << square;
  EXPECT_FALSE(play("e4")) << "black is to move";
}

TEST_F(HashKeys, TablesAreThoseOfTheGenerator) {
  EXPECT_EQ(hashState->indexKeys[0][0], 0x641198beU);
  EXPECT_EQ(hashState->lockKeys[0][0], 0x2570bd6cU);
  setUp("3qk3/8/8/8/8/8/8/3QK3 w");
  EXPECT_EQ(std::vector({at("d8").keyIndex, at("d1").keyIndex, at("a1").keyIndex}), std::vector({4, 10, 12}));
}

TEST_F(HashKeys, PositionsThatReturnAreCountedFromTheFirstMoveOn) {
  setUp(usualStart + "w");
  EXPECT_TRUE(play("Nf3 Nf6 Ng1 Ng8"));
  EXPECT_EQ(*hashState->lockTop, hashState->lockHistory[0]);
  const auto count = [] { return hashState->repetitionCounts[HashState::bucketOf(*hashState->indexTop)][0]; };
  EXPECT_EQ(count(), 1) << "the start is not counted";
  EXPECT_TRUE(play("Nf3"));
  EXPECT_EQ(count(), 2);
}

TEST_F(HashKeys, FifthPositionOfABucketIsNotCounted) {
  const auto& counts = hashState->repetitionCounts[7];
  *hashState->indexTop = 7 + 512;
  while (++*hashState->lockTop < 5) hashState->recordPosition();
  hashState->recordPosition();
  hashState->forgetPosition();
  EXPECT_EQ(std::vector<int>(counts, counts + 4), std::vector<int>(4, 1));
}

}  // namespace
}  // namespace quorvane

#include <fstream>

#include "board/piece_letter.h"
#include "learning/learning_fixture.h"

namespace quorvane {
namespace {

class Collection : public LearningTest {
 protected:
  static constexpr PositionType startType = 13;

  // Collects from the text of a game file; gives what is printed.
  std::string collect(const std::string& text) {
    std::ofstream("collection.pgn") << text;
    PgnDatabase database;
    database.load("collection.pgn");
    CapturedOutput output;
    collectSamples(database);
    return output.str();
  }

  std::size_t sampleCount() {
    std::size_t count = 0;
    for (const SampleSet& set : sampleSets) count += set.size();
    return count;
  }
};

constexpr char shuffle10[] = "1. Nf3 Nf6 2. Ng1 Ng8 3. Nf3 Nf6 4. Ng1 Ng8 5. Nf3 Nf6 ";

// Equal material has the dominance 0.25, so the last position is worth 37.5. The walk goes backwards; the
// target is that of the side to move.
TEST_F(Collection, TargetGrowsWithTheGameAndTakesTheSignOfTheSideToMove) {
  EXPECT_EQ(collect(std::string(shuffle10) + "6. Ng1 Ng8 1-0"), "Processing pgn games: . done.\n\n");
  EXPECT_EQ(targets(startType),
            (std::vector<std::int32_t>{37, -34, 31, -28, 25, -21, 18, -15, 12, -9, 6, -3}));
  collect(std::string(shuffle10) + "6. Ng1 0-1");
  EXPECT_EQ(targets(startType), (std::vector<std::int32_t>{37, -34, 30, -27, 23, -20, 17, -13, 10, -6, 3}));
}

TEST_F(Collection, GamesWithoutSamplesStillPrintADot) {
  const std::string tooShort = std::string(shuffle10) + "1-0 ";
  const std::string illegalAtTheEnd = "[A]" + std::string(shuffle10) + "6. Ng1 Ke5 1/2-1/2 ";
  const std::string noResult = "[A]" + std::string(shuffle10) + "6. Ng1 Ng8 * ";
  EXPECT_EQ(collect(tooShort + illegalAtTheEnd + noResult), "Processing pgn games: .. done.\n\n");
  EXPECT_EQ(sampleCount(), 0U);
}

TEST_F(Collection, UndecodableTokenEndsTheGameThere) {
  collect(std::string(shuffle10) + "6. Ng1 e.p. Ng8 1-0");
  EXPECT_EQ(sampleCount(), 11U);
  EXPECT_EQ(collect(""), "Processing pgn games:  done.\n\n");
  for (const SampleSet& set : sampleSets) EXPECT_TRUE(set.empty() && set.capacity() >= 1000U);
}

// White takes the queen at ply 11. Until the game has gone on for two plies, there is nothing like the
// difference of nine pawns behind the capture, but the 0 that counts behind the end of the game is like the
// difference before it.
TEST_F(Collection, TakesPositionsWhoseMaterialIsTheSameTwoOrFourPliesLater) {
  const std::string capture = "1. Nf3 d5 2. Ng1 Qd6 3. Nf3 Kd8 4. Ng1 Qa3 5. Nf3 Nf6 6. bxa3 Ng8 ";
  const struct {
    const char* ending;
    std::size_t before, behind;
  } cases[] = {{"", 10, 0}, {"7. Ng1 Nf6 ", 8, 2}, {"7. Ng1 Nf6 8. Nf3 Ng8 ", 8, 4}};
  for (const auto& [ending, before, behind] : cases) {
    collect(capture + ending + "1-0");
    EXPECT_EQ(sampleSets[13].size(), before) << ending;
    EXPECT_EQ(sampleSets[12].size(), behind) << ending;
  }
}

// A side that never has more than its king makes the dominance infinite: every target is 0, a draw's too.
TEST_F(Collection, BareKingGivesTargetsOfZero) {
  const std::string game =
      "[FEN \"8/8/8/4k3/8/8/8/KN6 w - - 0 1\"] 1. Ka2 Ke4 2. Ka1 Ke5 3. Ka2 Ke4 4. Ka1 Ke5 5. Ka2 Ke4 6. "
      "Ka1 ";
  collect(game + "1-0 " + game + "1/2-1/2");
  EXPECT_EQ(targets(6), std::vector<std::int32_t>(18, 0));
}

TEST_F(Collection, ListsBeginWithTheKingOfTheirSideInRingOrder) {
  collect(std::string(shuffle10) + "6. Ng1 1-0");
  const Sample sample = sampleSets[startType].sample(0);
  for (const auto& list : {sample.ownList, sample.opposingList}) {
    std::string kinds;
    for (const PieceConfiguration& piece : list) kinds += pieceLetter(white, piece.kind);
    EXPECT_EQ(kinds, "KPPPPPPPPRRBBNNQ");
  }
}

}  // namespace
}  // namespace quorvane

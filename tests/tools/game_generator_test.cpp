#include "tools/game_generator.h"

#include <gtest/gtest.h>

#include <fstream>

#include "board/piece.h"
#include "learning/learner.h"

namespace quorvane {

struct Position : public Board {
  Position() : text(std::to_string(history->depth)) {
    for (Square square = 0; square < squareCount; ++square)
      text += static_cast<char>('a' + board[square]->kind * 3 + board[square]->side);
  }
  std::string text;  // plies and pieces
};

TEST(GameGenerator, GivesTheSameBytesForASeed) {
  const auto twoGames = [] {
    GameGenerator generator(7);
    return generator.nextGame() + generator.nextEnding();
  };
  EXPECT_EQ(twoGames(), twoGames());
}

TEST(GameGenerator, WritesMovesThatReplayToTheSamePosition) {
  GameGenerator generator(1);
  const std::string name = testing::TempDir() + "generated.pgn";
  for (int round = 1; round <= 200; ++round) {
    const std::string pgn = round % 2 == 0 ? generator.nextGame() : generator.nextEnding();
    const std::string played = Position().text;
    std::ofstream(name) << pgn;
    PgnDatabase database;
    database.load(name);
    PgnGame& game = *database.game(0);
    Learner::setupPosition(game.placement, game.sideToMove);
    std::int32_t values[6];
    while (game.nextMove(values[0], values[1], values[2], values[3], values[4], values[5]))
      Board::playGameMove(values[0], values[1], values[2], values[3], values[4], values[5]);
    EXPECT_EQ(Position().text, played) << pgn;
    for (std::size_t begin = 0; begin < pgn.size(); begin = pgn.find('\n', begin) + 1)
      EXPECT_LT(pgn.find('\n', begin) - begin, 80U) << pgn;
  }
}

}  // namespace quorvane

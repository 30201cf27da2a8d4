#include "tools/game_generator.h"

#include <gtest/gtest.h>

#include "board/piece.h"
#include "pgn/pgn_database.h"
#include "support/files.h"
#include "support/temporary_folder.h"

namespace quorvane {
namespace {

struct Position : public Board {
  Position() : text(std::to_string(history->depth)) {
    for (Square square = 0; square < squareCount; ++square)
      text += static_cast<char>('a' + board[square]->kind * 3 + board[square]->side);
  }
  std::string text;  // plies and pieces
};

TEST(GameGenerator, WritesMovesThatReplayToTheSamePosition) {
  GameGenerator generator(1);
  const TemporaryFolder folder;
  for (int round = 1; round <= 200; ++round) {
    const std::string pgn = round % 2 == 0 ? generator.nextGame() : generator.nextEnding();
    const std::string played = Position().text;
    writeFile("generated.pgn", pgn);
    PgnDatabase database;
    database.load("generated.pgn");
    PgnGame& game = *database.game(0);
    Board::setupPosition(game.placement, game.sideToMove);
    for (DecodedMove move; game.nextMove(move);) Board::playGameMove(move);
    EXPECT_EQ(Position().text, played) << pgn;
    for (std::size_t begin = 0; begin < pgn.size(); begin = pgn.find('\n', begin) + 1)
      EXPECT_LT(pgn.find('\n', begin) - begin, 80U) << pgn;
  }
}

}  // namespace
}  // namespace quorvane

#include "play/position/position.h"

#include <fstream>

#include "board/board_fen.h"
#include "play/position/move_text.h"
#include "support/board_fixture.h"
#include "support/files.h"

namespace quorvane::play {
namespace {

void expectCounts(const std::string& file, const std::string& restOfFen, int positions) {
  std::ifstream lines(projectFile(file));
  for (std::string line; std::getline(lines, line);) {
    const std::size_t end = line.find(" |");
    if (line.starts_with('#') || end == std::string::npos) continue;
    const Position position(line.substr(0, end) + restOfFen);
    std::istringstream counts(line.substr(end + 2));
    std::int32_t depth = 1;
    for (std::uint64_t count; counts >> count; ++depth) EXPECT_EQ(perft(position, depth), count) << line;
    --positions;
  }
  EXPECT_EQ(positions, 0);
}

TEST(PlayPerft, CountsArePublishedOnes) {
  expectCounts("tests/board/perft.txt", " KQkq -", 16);
  expectCounts("tests/play/perft.txt", "", 20);
}

std::string faultOf(const std::string& fen) {
  try {
    return "taken as " + Position(fen).fen();
  } catch (const BadPosition& fault) {
    return fault.what();
  }
}

TEST(PlayPosition, SaysWhyAFenIsRefused) {
  EXPECT_EQ(faultOf(""), "has 1 rank instead of 8");
  EXPECT_EQ(faultOf("8/8/8/8/8/8/8/K7 w - -"), "does not give each side exactly one king");
  EXPECT_EQ(faultOf("8/8/8/8/8/8/kK6/8 w - -"), "puts the kings side by side");
  EXPECT_EQ(faultOf("k7/8/8/8/8/8/8/R6K w - -"), "leaves the side that is not to move in check");
  EXPECT_EQ(faultOf("k7/8/8/8/8/8/8/R5PK b - -"), "a pawn stands on rank 1");
  EXPECT_EQ(faultOf("k7/8/8/8/8/8/8/7K x - -"), "names 'x' as the side to move, which is neither w nor b");
  EXPECT_EQ(faultOf("k7/8/8/8/8/8/8/7K w z -"), "names castling rights that there are not");
  EXPECT_EQ(faultOf("k7/8/8/8/8/8/8/7K w - e9"), "has an en passant field that is no square");
  EXPECT_EQ(faultOf("k6n/nnnnnnnn/nnnnnnnn/8/8/8/8/7K w - -"), "has more than 16 pieces on a side");
}

TEST(PlayPosition, TakesOfAFenWhatCanBe) {
  EXPECT_EQ(Position().fen(), Position::usualStart);
  EXPECT_EQ(faultOf("r3k2r/8/8/8/8/8/8/R3K1R1 w KQkq e3 bm Ke2;"),
            "taken as r3k2r/8/8/8/8/8/8/R3K1R1 w Qkq - 0 1");
  EXPECT_EQ(faultOf("r3k2r/8/8/8/8/8/8/R3K2R b HAha - 99 70"),
            "taken as r3k2r/8/8/8/8/8/8/R3K2R b KQkq - 99 70");
  // Where no pawn can take in passing, the position is the same as without the square.
  EXPECT_EQ(faultOf("4k3/8/8/8/4P3/8/8/4K3 b - e3 0 1"), "taken as 4k3/8/8/8/4P3/8/8/4K3 b - - 0 1");
  EXPECT_EQ(faultOf("4k3/8/8/8/3pP3/8/8/4K3 b - e3 -4 99999999999"),
            "taken as 4k3/8/8/8/3pP3/8/8/4K3 b - e3 0 1");
}

// The rules of the Board and those of the search's position are the same, and what a position keeps up to
// date is what it would be if it were set up anew.
class PlayAgainstBoard : public BoardTest {
 protected:
  void expectAgreement(const Position& position) {
    const std::string fen = BoardFen::text();
    EXPECT_EQ(fen.substr(0, fen.find(' ')), position.fen().substr(0, fen.find(' ')));
    std::vector<std::string> ours;
    for (const Move move : legalMoves(position)) ours.push_back(coordinates(move));
    std::vector<std::string> theirs;
    for (const MoveRecord& move : allMoves()) {
      if (PseudoLegalMoves::isLegal(move)) theirs.push_back(coordinates(of(move)));
    }
    std::ranges::sort(ours);
    std::ranges::sort(theirs);
    EXPECT_EQ(ours, theirs) << position.fen();
    const Position anew(position.fen());
    EXPECT_EQ(anew.fen(), position.fen());
    EXPECT_EQ(anew.key, position.key) << position.fen();
    EXPECT_EQ(anew.inCheck(), position.inCheck());
  }
  static Move of(const MoveRecord& move) {
    return {static_cast<std::uint8_t>(move.from), static_cast<std::uint8_t>(move.to),
            static_cast<std::uint8_t>(move.kind)};
  }
};

TEST_F(PlayAgainstBoard, RandomGamesGoTheSameWay) {
  Position position;
  std::int32_t made = 0;
  playRandomGames([&] {
    if (history->depth == 0) {
      position = Position(BoardFen::text());
    } else {
      const UndoRecord& last = history->record(history->depth);
      const Move done{static_cast<std::uint8_t>(last.fromSquare), static_cast<std::uint8_t>(last.toSquare),
                      0};
      for (const Move move : legalMoves(position)) {
        const bool fits = move.from == done.from && move.to == done.to;
        const PieceKind now = last.movedPiece->kind;
        if (!fits || (move.promotes() && promotedKind(static_cast<MoveKind>(move.kind)) != now)) continue;
        const std::string san = standardNotation(position, move);
        PgnGame game;
        game.tokens = tokensOf(san);
        DecodedMove decoded;
        ASSERT_TRUE(game.nextMove(decoded));
        EXPECT_EQ(moveOf(position, decoded), move) << position.fen() << ' ' << san;
        EXPECT_EQ(moveOf(position, coordinates(move)), move);
        position.make(move);
        ++made;
        break;
      }
    }
    expectAgreement(position);
  });
  EXPECT_GT(made, 1000);
}

TEST(PlayPosition, KnowsWhereNobodyCanMate) {
  const auto tooLittle = [](const std::string& pieces) {
    return Position(pieces + " w - -").hasTooLittleMaterial();
  };
  EXPECT_TRUE(tooLittle("k7/8/8/8/8/8/8/7K"));
  EXPECT_TRUE(tooLittle("kn6/8/8/8/8/8/8/7K"));
  EXPECT_TRUE(tooLittle("kb1b4/8/8/8/8/8/1B6/B6K"));
  EXPECT_FALSE(tooLittle("kb6/8/8/8/8/8/8/1B5K"));
  EXPECT_FALSE(tooLittle("kn6/8/8/8/8/8/8/1N5K"));
  EXPECT_FALSE(tooLittle("kn6/8/8/8/8/8/8/1B5K"));
  EXPECT_FALSE(tooLittle("k7/p7/8/8/8/8/8/7K"));
}

TEST(PlayPosition, WritesMovesAsGamesDo) {
  const auto written = [](const std::string& fen, const std::string& move) {
    const Position position(fen);
    return standardNotation(position, moveOf(position, move));
  };
  EXPECT_EQ(written("8/7k/8/8/Q2Q4/8/8/Q6K w - -", "a4d1"), "Qa4d1");
  EXPECT_EQ(written("8/7k/8/8/Q2Q4/8/8/Q6K w - -", "d4b4"), "Qdb4");
  EXPECT_EQ(written("8/7k/3Q4/8/8/8/8/3Q3K w - -", "d1d3"), "Q1d3+");
  EXPECT_EQ(written("3rk3/4P3/8/8/8/8/8/K7 w - -", "e7d8n"), "exd8=N");
  EXPECT_EQ(written("3r2k1/4P3/8/8/8/8/8/K7 w - -", "e7e8n"), "e8=N");
  EXPECT_EQ(written("5rk1/5ppp/8/8/8/8/8/R3K2R w KQ -", "e1c1"), "O-O-O");
  EXPECT_EQ(written("6k1/5ppp/8/8/8/8/8/R3K3 w Q -", "a1a8"), "Ra8#");
  // A knight that is pinned does not count.
  EXPECT_EQ(written("4r2k/8/8/8/8/8/4N3/N3K3 w - -", "a1c2"), "Nc2");
}

}  // namespace
}  // namespace quorvane::play

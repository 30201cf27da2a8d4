#include "pgn/pgn_database.h"

#include <gtest/gtest.h>

#include "support/files.h"
#include "support/temporary_folder.h"

namespace quorvane {
namespace {

class PgnReader : public testing::Test {
 protected:
  // Tags and tokens of all games, as "[White]e4|e5|".
  std::string read(const std::string& text) {
    writeFile("read.pgn", text);
    database = {};
    database.load("read.pgn");
    database.load("no such file");
    std::string games;
    for (std::int32_t index = 0; const PgnGame* const game = database.game(index); ++index) {
      const TextList& tags = game->tags;
      for (std::size_t tag = 0; tag < tags.size(); ++tag) games.append("[").append(tags[tag]).append("]");
      for (std::size_t token = 0; token < game->tokens.size(); ++token)
        games.append(game->tokens[token]).append("|");
    }
    return games;
  }
  const TemporaryFolder folder;
  PgnDatabase database;
};

TEST_F(PgnReader, CutsTextIntoTagsAndTokens) {
  const std::pair<const char*, const char*> lines[] = {
      {"1. e4 e5 2.Nf3 12. Nf3 13.Nc3 1-0 1/2-1/2", "1.|e4|e5|2.|Nf3|12|Nf3|13|Nc3|1-0|1/2-1/2|"},
      {"12...Nf6 1...e5 1... c5 1 e4 12 e4\n13. Nf3 1", "12|..Nf6|1.|..e5|1.|..|c5|1e4|12 e4\n13|Nf3|1|"},
      {"e4 ! e5 $1 ;c *d4 * \r\ne5\t2.\v\fNf3 \xe4\xff 12", "e4|!e5|$1|;c|*|d4|*|e5|2.|Nf3|\xe4\xff|12|"},
      {"(1. e4 (1. d4) e5) {a [b] {c\r\n} <x> e4{a}", "(1. e4 (1. d4)|e5)|{a [b] {c\r\n}|<x>|e4{a}|"},
      {"e4 {never closed [x]\n", "e4|{never closed [x]\n}|"},
      {"e4 [A \"[1\"][B\n] [ C] e5 1-0 d4[x [Last", "e4|[A \"[1\"][B\n][ C]e5|1-0|d4[x|[Last]"},
      {" \r\n\t", ""},
  };
  for (const auto& [text, games] : lines) EXPECT_EQ(read(text), games) << text;
  EXPECT_EQ(database.game(-1), nullptr);
}

TEST_F(PgnReader, GameIsHandedOutRewound) {
  read("e4 e5");
  for (int round = 0; round < 2; ++round) {
    DecodedMove move;
    std::int32_t moves = 0;
    for (PgnGame* const game = database.game(0); game->nextMove(move);) ++moves;
    EXPECT_EQ(moves, 2) << round;
  }
}

TEST_F(PgnReader, EndsOfBlocksDoNotShow) {
  const std::string text = "[A b] 1. exd5 12. {a b} (c) <d> 0-1 Nf3";
  for (std::size_t inFirstBlock = 0; inFirstBlock <= text.size(); ++inFirstBlock) {
    const std::string blanks((1 << 16) - inFirstBlock, ' ');
    EXPECT_EQ(read(blanks + text), "[A b]1.|exd5|12|{a b}|(c)|<d>|0-1|Nf3|") << inFirstBlock;
  }
}

TEST_F(PgnReader, TextsOfAnyLengthComeBackWhole) {
  const std::string game = "[A b]e4|e5|";
  for (const std::size_t length : {65529U, 65530U, 65531U, 65532U, 65536U, 1U << 20, (1U << 20) + 1}) {
    const std::string comment = std::string("{").append(length, 'x').append("}");
    const std::string longTag = std::string("[").append(comment).append("]");
    const std::string expected = game + longTag + "e4|" + comment + "|d4|" + game + "[c]" + comment + "|";
    EXPECT_TRUE(read("[A b] e4 e5 " + longTag + " e4 " + comment + " d4 [A b] e4 e5 [c]" + comment) ==
                expected)
        << length;
  }
  database.clear();
  EXPECT_EQ(database.game(0), nullptr);
}

TEST_F(PgnReader, FenTagGivesTheStartIfTheBoardHoldsIt) {
  const std::string kings = " \"4k3/8/8/8/8/8/8/4K3 b\"]";
  // How many pieces. The last refusals: two on one square, seventeen of a side, pawns that can go no further.
  const std::vector<std::pair<std::string, std::size_t>> lines = {
      {"[FEN" + kings, 2},
      {"[White][Fen" + kings + "[Event]", 2},
      {"[ FEN" + kings, 32},
      {"[FEN" + kings.substr(1), 32},
      {"[fen" + kings + "[FEN \"8/8/8/8/8/8/8/R7 b\"]", 3},
      {"[FEN" + kings + "[FEN" + kings, 32},
      {"[FEN \"p3k3/8/8/8/8/8/8/P3K3 b\"]", 4},
      {"[FEN \"P3k3/8/8/8/8/8/8/4K3\"][FEN" + kings, 2},
      {"[FEN" + kings + "[FEN \"8/8/8/8/8/8/8/4R3 b\"]", 32},
      {"[FEN \"4k3/8/8/8/8/7R/RRRRRRRR/RRRRKRRR b\"]", 32},
      {"[FEN \"P3k3/8/8/8/8/8/8/4K3 b\"]", 32},
      {"[FEN \"4k3/8/8/8/8/8/8/4K2p b\"]", 32}};
  for (const auto& [tags, pieces] : lines) {
    read(tags + " e4 [White] e4");
    EXPECT_EQ(database.game(0)->placement.all().size(), pieces) << tags;
    EXPECT_EQ(database.game(0)->sideToMove, pieces == 32 ? white : black) << tags;
    EXPECT_EQ(database.game(1)->placement.all().size(), 32U) << "a tag serves its own game alone";
  }
}

}  // namespace
}  // namespace quorvane

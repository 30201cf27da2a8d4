#include "pgn/pgn_game.h"

#include <gtest/gtest.h>

#include <sstream>

#include "support/token_list.h"

namespace quorvane {
namespace {

using Lines = std::vector<std::pair<std::string, std::string>>;

// Pieces in the order of their lists, then the other fields.
std::string described(const PgnGame& game) {
  std::ostringstream text;
  for (std::int32_t list = 0; list < placementListCount; ++list)
    for (const int square : game.placement[list]) text << "prbnqkPRBNQK"[list] << square << ' ';
  text << game.sideToMove << ' ' << game.whiteKingSide << game.whiteQueenSide << game.blackKingSide
       << game.blackQueenSide << ' ' << game.enPassant << ' ' << game.halfmoveClock << ' '
       << game.fullmoveNumber;
  return text.str();
}

TEST(FenParser, TakesAnyTextWithOneKingASide) {
  const Lines lines = {
      {"rnbqkbnr/pppppppp/8/8/8/8/PPPPPPPP/RNBQKBNR w KQkq - 0 1",
       "p48 p49 p50 p51 p52 p53 p54 p55 r56 r63 b58 b61 n57 n62 q59 k60 "
       "P8 P9 P10 P11 P12 P13 P14 P15 R0 R7 B2 B5 N1 N6 Q3 K4 1 1111 64 0 1"},
      {"4k3/8/7N/N7/8/8/8/N3K3   b  kQ  h6 17 305", "k60 N47 N32 N0 K4 0 0110 47 17 305"},
      {"4k3/r/8/7r/8/8/8/4K3 W - e3 0 1", "r48 r39 k60 K4 1 0000 20 0 1"},
      {"4k3/72/r7/8/8/8/8/4K3 - - - 0 1", "r40 k60 K4 1 0000 64 0 1"},   // more than eight files
      {"4k3r7/8/8/8/8/8/4K3 B - - 0 1", "k60 K4 1 0000 64 0 1"},         // the separator is not looked at
      {"4k3//r/8/8/8/8/4K3 b - - 0 1", "r40 k60 K4 0 0000 64 0 1"},      // an empty row
      {"4k3/x09r/8/8/8/8/8/4K3 b - - 0 1", "r48 k60 K4 0 0000 64 0 1"},  // characters that mean nothing
      {"4k3/8/8/8/8/8/8/4K2 r b - - 0 1", "r7 k60 K4 0 0000 64 0 1"},    // a last row that goes on
  };
  for (const auto& [text, expected] : lines) {
    PgnGame game;
    EXPECT_TRUE(game.parseFen("FEN \"" + text + "\"")) << text;
    EXPECT_EQ(described(game), expected) << text;
  }
}

TEST(FenParser, SecondTagAddsPiecesAndSetsTheOtherFieldsUnlessItIsRefused) {
  PgnGame game;
  EXPECT_TRUE(game.parseFen("\"4k3/8/8/8/8/8/8/4K3 b KQkq h6 17 305\""));
  EXPECT_TRUE(game.parseFen("\"8/8/8/8/8/8/8/R7 w Qk a3 2 40\""));
  EXPECT_EQ(described(game), "k60 R0 K4 1 0110 16 2 40");
  EXPECT_FALSE(game.parseFen("\"8/8/8/8/8/8/8/4K3 b KQ - 0 1\""));
  EXPECT_EQ(described(game), "1 0110 16 2 40");
}

TEST(FenParser, ReadsNothingBehindTheTag) {
  const std::string tag = "\"4k3/8/8/8/8/8/8/4K3 b KQkq h6 17 305\"";
  for (std::size_t size = 0; size <= tag.size(); ++size) {
    PgnGame inside;
    PgnGame alone;
    EXPECT_EQ(inside.parseFen(std::string_view(tag).substr(0, size)), alone.parseFen(tag.substr(0, size)));
    EXPECT_EQ(described(inside), described(alone)) << size;
  }
}

TEST(FenParser, RefusesAllButOneKingASide) {
  for (const char* text : {"4k3/8/8/8/8/8/8/4K3", "\"8/8/8/8/8/8/8/4K3", "\"4k3/8/8/8/8/8/8/8",
                           "\"4k3/8/8/8/8/8/8/3KK3", "\"4k3/8/8/8/8/8/8/RNBQKBN w KQkq"}) {
    PgnGame game;
    EXPECT_FALSE(game.parseFen(text) || !game.placement.all().empty()) << text;
  }
}

PgnGame gameOf(const std::string& tokens) {
  PgnGame game;
  game.tokens = tokensOf(tokens);
  return game;
}

// The six values of each move as digits, up to the first token that ends the game.
std::string decoded(const std::string& tokens) {
  PgnGame game = gameOf(tokens);
  std::string digits;
  for (DecodedMove move; game.nextMove(move);) {
    for (const std::int32_t value :
         {move.fromRank, move.fromFile, move.toRank, move.toFile, std::int32_t{move.kind}, move.promotion})
      digits += std::to_string(value);
  }
  return digits;
}

TEST(MoveTokens, DecodeIntoOriginDestinationKindAndPromotion) {
  std::istringstream lines(
      "e4 883406 exd5 844306 Nf3 882516 Nbd7 816316 N1d2 081316 Qa1xb2 001146 Kd1 880356 e8=Q+ 887404 "
      "exd8=N# 847301 Rd1!? 880336 e2e4 143406 Pe4 883406 O-O 888656 O-O-O 888256 e2-e4 883406 Ng1-f3 882506 "
      "b8=R 887103 bxa1=B?? 810002 Bb5+!! 884126 R8xh8# 787736 O-Ne4 883416");
  for (std::string token, digits; lines >> token >> digits;) EXPECT_EQ(decoded(token), digits) << token;
}

TEST(MoveTokens, BadMoveEndsTheGameAndOtherTokensArePassedOver) {
  for (const std::string token :
       {"O-O+", "O-O-O!", "e8Q", "e8=K", "e", "N", "K+", "e.p.", "e9", "e0", "Qx", "b\xe4", "bi4"})
    EXPECT_EQ(decoded(token + " e4"), "") << token;
  EXPECT_EQ(decoded("1. {Nf3} (e4) <x> * ..e5 $1 !e4 0-0 i4 o-o 1-0 n d4 ; *"), "883306");
}

TEST(GameResult, LastWholeMarkDecides) {
  const std::vector<std::pair<std::string, int>> lines = {
      {"e4 1-0", 1}, {"0-1 {time}", -1}, {"1/2-1/2", 0},  {"1-0 e4 0-1", -1},
      {"1-0 *", 2},  {"* 1-0", 1},       {"1-0) 1/2", 2}, {"", 2}};
  for (const auto& [tokens, result] : lines) EXPECT_EQ(gameOf(tokens).result(), result) << tokens;
}

}  // namespace
}  // namespace quorvane

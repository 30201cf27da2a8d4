#ifndef QUORVANE_TESTS_SUPPORT_BOARD_FIXTURE_H_
#define QUORVANE_TESTS_SUPPORT_BOARD_FIXTURE_H_

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <random>
#include <sstream>

#include "board/hash_state.h"
#include "board/piece.h"
#include "board/pseudo_legal_moves.h"
#include "board/ring.h"
#include "board/square_name.h"
#include "learning/learner.h"
#include "support/board_laws.h"
#include "support/token_list.h"

namespace quorvane {

inline const std::string usualStart = "rnbqkbnr/pppppppp/8/8/8/8/PPPPPPPP/RNBQKBNR ";
using FenLines = std::vector<std::pair<std::string, std::string>>;  // with what is expected

// The board, spoken to in FEN, move tokens and names of squares. What holds of every position is tested when
// a test lets go of it, and again once all moves are taken back.
class BoardTest : public testing::Test, protected Learner {
 protected:
  void TearDown() override {
    if (pieceById[emptySquareId] == nullptr) return;  // no position was set up
    expectInvariants();
    while (history->depth > 0) unmakeMove();
    expectInvariants();
    for (const auto& bucket : hashState->repetitionCounts) EXPECT_EQ(std::ranges::count(bucket, 0), 4);
  }

  static void expectInvariants() { EXPECT_STREQ(BoardLaws::brokenByPieces(), nullptr); }

  // A FEN up to the side to move.
  void setUp(const std::string& fen) {
    PgnGame game;
    ASSERT_TRUE(game.parseFen("FEN \"" + fen + "\"")) << fen;
    setupPosition(game.placement, game.sideToMove);
  }

  // Tokens between blanks, up to the first that is refused; true if none is.
  bool play(const std::string& tokens) {
    PgnGame game;
    game.tokens = tokensOf(tokens);
    for (DecodedMove move; game.nextMove(move);)
      if (!playGameMove(move)) return false;
    return true;
  }

  Piece& at(const std::string& square) { return *board[squareAt(square[1] - '1', square[0] - 'a')]; }

  // The destinations of a piece in the order of generation.
  std::string moves(const std::string& square) {
    std::string text;
    for (const MoveRecord& move : PseudoLegalMoves::of(at(square)))
      text.append(" ").append(squareName(move.to));
    return text;
  }

  // Pseudo-legal moves, with the promotions that are not generated.
  std::vector<MoveRecord> allMoves() {
    std::vector<MoveRecord> all;
    for (const MoveRecord& move : PseudoLegalMoves::all()) {
      all.push_back(move);
      if (move.kind != promoteToKnight) continue;
      for (const MoveKind kind : {promoteToBishop, promoteToRook}) all.emplace_back(move).kind = kind;
    }
    return all;
  }

  // The same games in every run, taken back in the end; `visit` runs in each position.
  void playRandomGames(const std::function<void()>& visit) {
    std::mt19937 random(1);
    for (std::int32_t game = 0; game < 10; ++game) {
      for (const char* fen : {"r3k2r/p1ppqpb1/bn2pnp1/3PN3/1p2P3/2N2Q1p/PPPBBPPP/R3K2R w",
                              "4k3/p1p1p1p1/8/1P1P1P1P/1p1p1p1p/8/P1P1P1P1/4K3 w"}) {
        setUp(fen);
        const std::vector<std::uint64_t> start = BoardLaws::state();
        std::vector<MoveRecord> all;
        do {
          visit();
          all = allMoves();
          std::ranges::shuffle(all, random);
        } while (history->depth < 100 && std::ranges::any_of(all, PseudoLegalMoves::makeIfLegal));
        while (history->depth > 0) unmakeMove();
        EXPECT_EQ(BoardLaws::state(), start);
      }
    }
  }

  void describe() {
    network.classifyPosition(Network::classifyBoard, false);
    Network::computeConfigurations();
  }

  // Words as "e2 11 31, g1 13": squares and bits.
  void expectWords(const FenLines& lines, const std::string& tokens = "") {
    for (const auto& [fen, words] : lines) {
      setUp(fen);
      EXPECT_TRUE(play(tokens));
      describe();
      std::istringstream text(words);
      for (std::string piece; std::getline(text >> std::ws, piece, ',');) {
        std::string word = piece.substr(0, 2);
        for (std::uint32_t bit = 0; bit < 32; ++bit)
          if ((at(piece).configuration >> bit & 1) != 0) word.append(" ").append(std::to_string(bit));
        EXPECT_EQ(word, piece) << fen;
      }
    }
  }
};

}  // namespace quorvane

#endif  // QUORVANE_TESTS_SUPPORT_BOARD_FIXTURE_H_

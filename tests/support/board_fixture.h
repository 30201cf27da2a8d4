#ifndef QUORVANE_TESTS_SUPPORT_BOARD_FIXTURE_H_
#define QUORVANE_TESTS_SUPPORT_BOARD_FIXTURE_H_

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <random>
#include <sstream>

#include "board/hash_state.h"
#include "board/piece.h"
#include "learning/learner.h"

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

  void expectInvariants() {
    std::int32_t standing = 0;
    for (Piece* const king : kings) {
      forEachInRing(king, [&](const Piece& piece) {
        ++standing;
        EXPECT_TRUE(stands(&piece) && pieceById[piece.id] == &piece && piece.side == king->side);
        EXPECT_TRUE(piece.next->prev == &piece && (piece.kind == kingKind || piece.id < piece.next->id));
      });
    }
    EXPECT_EQ(std::ranges::count(board, pieceById[emptySquareId]), squareCount + 1 - standing);
  }

  // A FEN up to the side to move.
  void setUp(const std::string& fen) {
    PgnGame game;
    ASSERT_TRUE(game.parseFen("FEN \"" + fen + "\"")) << fen;
    setupPosition(game.placement, game.sideToMove);
  }

  // Tokens between blanks, up to the first that is refused; true if none is.
  bool play(const std::string& tokens) {
    PgnGame game;
    std::istringstream text(tokens);
    for (std::string token; text >> token;) game.tokens.append(token);
    std::int32_t v[6];
    while (game.nextMove(v[0], v[1], v[2], v[3], v[4], v[5]))
      if (!playGameMove(v[0], v[1], v[2], v[3], v[4], v[5])) return false;
    return true;
  }

  bool makeIfLegal(const MoveRecord& move) {
    currentMove = move;
    makeMove();
    const bool legal = !kings[1 - currentMove.sideToMove]->isAttacked();
    if (!legal) unmakeMove();
    return legal;
  }

  Piece& at(const std::string& square) { return *board[squareAt(square[1] - '1', square[0] - 'a')]; }
  bool stands(const Piece* piece) { return piece != nullptr && board[piece->square] == piece; }

  std::vector<MoveRecord> generated(Piece& piece) {
    MoveList list{moveBuffer, 0};
    activeMoveList = &list;
    EXPECT_EQ(piece.generateMoves(), list.count);
    return {moveBuffer, list.cursor};
  }

  // The destinations of a piece in the order of generation.
  std::string moves(const std::string& square) {
    std::string text;
    for (const MoveRecord& move : generated(at(square)))
      text += {' ', static_cast<char>('a' + fileOf(move.to)), static_cast<char>('1' + rankOf(move.to))};
    return text;
  }

  // Pseudo-legal moves, with the promotions that are not generated.
  std::vector<MoveRecord> allMoves() {
    std::vector<MoveRecord> all;
    forEachInRing(kings[currentMove.sideToMove], [&](Piece& piece) {
      for (const MoveRecord& move : generated(piece)) {
        all.push_back(move);
        if (move.kind != promoteToKnight) continue;
        for (const MoveKind kind : {promoteToBishop, promoteToRook}) all.emplace_back(move).kind = kind;
      }
    });
    return all;
  }

  // What taking a move back has to restore.
  std::vector<std::int64_t> state() {
    std::vector<std::int64_t> all = {currentMove.sideToMove, enPassantSquare,      history->depth,
                                     *hashState->lockTop,    *hashState->indexTop, *hashState->slotTop};
    for (const Piece* piece : board) {
      const bool castled = piece->kind == kingKind && static_cast<const King*>(piece)->castled;
      all.insert(all.end(),
                 {piece->id, piece->kind, piece->moveCount, piece->prev->id, piece->next->id, castled});
    }
    for (const auto& bucket : hashState->repetitionCounts) all.insert(all.end(), bucket, bucket + 4);
    return all;
  }

  // The same games in every run, taken back in the end; `visit` runs in each position.
  void playRandomGames(const std::function<void()>& visit) {
    std::mt19937 random(1);
    for (std::int32_t game = 0; game < 10; ++game) {
      for (const char* fen : {"r3k2r/p1ppqpb1/bn2pnp1/3PN3/1p2P3/2N2Q1p/PPPBBPPP/R3K2R w",
                              "4k3/p1p1p1p1/8/1P1P1P1P/1p1p1p1p/8/P1P1P1P1/4K3 w"}) {
        setUp(fen);
        const std::vector<std::int64_t> start = state();
        std::vector<MoveRecord> all;
        do {
          visit();
          all = allMoves();
          std::ranges::shuffle(all, random);
        } while (history->depth < 100 &&
                 std::ranges::any_of(all, [&](auto& move) { return makeIfLegal(move); }));
        while (history->depth > 0) unmakeMove();
        EXPECT_EQ(state(), start);
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

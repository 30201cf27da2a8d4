#include "fuzz/tested_board.h"

#include <algorithm>

#include "board/pseudo_legal_moves.h"
#include "fuzz/fuzz_target.h"
#include "support/board_laws.h"

namespace quorvane {

void TestedBoard::setUp(const PgnGame& game) {
  setupPosition(game.placement, game.sideToMove);
  states.clear();
  holds(BoardLaws::brokenByPieces());
}

void TestedBoard::holds(const char* brokenLaw) {
  require(brokenLaw == nullptr, brokenLaw);
}

std::vector<MoveRecord> TestedBoard::moves() {
  holds(BoardLaws::brokenByMoves());
  const auto generated = PseudoLegalMoves::all();
  std::vector<MoveRecord> all(generated.begin(), generated.end());
  const Piece& enemyKing = *kings[opponent(currentMove.sideToMove)];
  std::erase_if(all, [&](const MoveRecord& move) { return move.to == enemyKing.square; });
  return all;
}

void TestedBoard::make(const MoveRecord& move) {
  states.push_back(BoardLaws::state());
  currentMove = move;
  makeMove();
  holds(BoardLaws::brokenByPieces());
}

void TestedBoard::unmake() {
  unmakeMove();
  require(BoardLaws::state() == states.back(), "taking back restores everything");
  states.pop_back();
}

void TestedBoard::play(const std::vector<MoveRecord>& moves, const MoveRecord& wanted, std::uint32_t named,
                       std::int32_t promotion) {
  const PieceKind kind = board[wanted.from]->kind;
  const auto told = [&](std::uint32_t bit, std::int32_t value) {
    return (named & bit) != 0 ? value : anyRankOrFile;
  };
  const DecodedMove asked{told(1, rankOf(wanted.from)),
                          told(2, fileOf(wanted.from)),
                          told(4, rankOf(wanted.to)),
                          told(8, fileOf(wanted.to)),
                          kind,
                          promotion};
  const MoveRecord& first = *std::ranges::find_if(moves, [&](const MoveRecord& move) {
    return board[move.from]->kind == kind && PseudoLegalMoves::fits(asked, move);
  });
  const bool promotes = promotion >= knightKind && promotion <= queenKind;
  Piece& ownKing = *kings[currentMove.sideToMove];
  const bool refused = depth() + 2 >= depthLimit || kings[opponent(currentMove.sideToMove)]->isAttacked() ||
                       (promotes && kind == kingKind);
  states.push_back(BoardLaws::state());
  if (playGameMove(asked)) {
    require(!refused && !ownKing.isAttacked(), "a made move is legal");
    require(currentMove.from == first.from && currentMove.to == first.to, "the first move that fits is made");
    require(!promotes || board[first.to]->kind == promotion, "a promotion code counts");
    holds(BoardLaws::brokenByPieces());
    return;
  }
  require(BoardLaws::state() == states.back(), "a refused move changes nothing");
  states.pop_back();
  if (refused) return;
  make(first);
  require(ownKing.isAttacked(), "a move that fits is refused for its own king alone");
  unmake();
}

void TestedBoard::describe() {
  network.classifyPosition(Network::classifyBoard, false);
  Network::computeConfigurations();
}

}  // namespace quorvane

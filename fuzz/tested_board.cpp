#include "fuzz/tested_board.h"

#include <algorithm>
#include <array>

#include "board/ring.h"
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
  std::vector<MoveRecord> all;
  for (Piece& piece : Ring(kings[currentMove.sideToMove])) {
    for (const MoveRecord& move : BoardLaws::generated(piece)) all.push_back(move);
  }
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
  const auto ranksAndFiles = [](const MoveRecord& move) {
    return std::array{rankOf(move.from), fileOf(move.from), rankOf(move.to), fileOf(move.to)};
  };
  const PieceKind kind = board[wanted.from]->kind;
  const auto wantedValues = ranksAndFiles(wanted);
  std::array<std::int32_t, 4> values;
  for (std::size_t i = 0; i < 4; ++i) values[i] = (named >> i & 1) != 0 ? wantedValues[i] : anyRankOrFile;
  const MoveRecord& first = *std::find_if(moves.begin(), moves.end(), [&](const MoveRecord& move) {
    const auto fits = [](std::int32_t value, std::int32_t own) {
      return value == anyRankOrFile || value == own;
    };
    const auto own = ranksAndFiles(move);
    return board[move.from]->kind == kind && std::equal(values.begin(), values.end(), own.begin(), fits);
  });
  const bool promotes = promotion >= knightKind && promotion <= queenKind;
  Piece& ownKing = *kings[currentMove.sideToMove];
  const bool refused = depth() + 2 >= depthLimit || kings[opponent(currentMove.sideToMove)]->isAttacked() ||
                       (promotes && kind == kingKind);
  states.push_back(BoardLaws::state());
  if (playGameMove({values[0], values[1], values[2], values[3], kind, promotion})) {
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

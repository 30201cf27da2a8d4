// Bytes choose a start position, then moves, made directly or as a game file would name them, and how many to
// take back: all of it is exact.

#include <algorithm>
#include <iterator>

#include "fuzz/fuzz_target.h"
#include "fuzz/tested_board.h"

namespace quorvane {
namespace {

constexpr const char* starts[] = {
    "\"rnbqkbnr/pppppppp/8/8/8/8/PPPPPPPP/RNBQKBNR w",
    "\"r3k2r/pppq1ppp/2n2n2/2b1p3/2B1P3/2N2N2/PPPQ1PPP/R3K2R w",  // castling to all sides
    "\"1n2k1n1/P1P2P1P/8/8/8/8/p1p2p1p/1N2K1N1 b",                // promotions, with and without captures
    "\"4k3/p1p1p1p1/8/1P1P1P1P/1p1p1p1p/8/P1P1P1P1/4K3 w",        // en passant on all files
    "\"qqqqkqqq/qqqqqqqq/8/8/8/8/QQQQQQQQ/QQQQKQQQ w",
    "\"4k2R/8/r3K2r/8/8/8/8/R6r w",  // castling off the first rank, with rooks of the other side
    "\"4k3/PPPPPPPP/8/8/8/8/pppppppp/4K3 w",
    "\"pppppppp/4k3/8/8/8/8/4K3/PPPPPPPP b",
};

// `how` is 255: takes back `choice` moves. Else `choice` is a move, the lower half of `how` what names it, 0
// if nothing does, and the upper half the promotion.
void step(TestedBoard& board, std::uint8_t choice, std::uint8_t how) {
  const std::vector<MoveRecord> moves = board.moves();
  if (how == 255 || moves.empty() || board.depth() == historyCapacity - 1) {
    for (std::int32_t count = std::min<std::int32_t>(choice, board.depth()); count > 0; --count)
      board.unmake();
    return;
  }
  MoveRecord move = moves[choice % moves.size()];
  if ((how & 15) != 0) return board.play(moves, move, how & 15U, how >> 4);
  if (move.kind == promoteToQueen) move.kind = static_cast<MoveKind>(promoteToQueen + (how >> 4) % 4);
  board.make(move);
}

}  // namespace
}  // namespace quorvane

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace quorvane;
  enterScratchFolder();
  static TestedBoard board;
  PgnGame game;
  game.parseFen(starts[size == 0 ? 0 : data[0] % std::size(starts)]);
  board.setUp(game);
  for (std::size_t place = 1; place + 1 < size; place += 2) step(board, data[place], data[place + 1]);
  while (board.depth() > 0) board.unmake();
  return 0;
}

// What the library for evaluating costs: by the position, over all those of 4,000 generated games, or of the
// file that the environment names as QUORVANE_BENCH_GAMES; with the patterns of these games. What they weigh
// takes no time.

#include <algorithm>
#include <cstdlib>
#include <string>
#include <vector>

#include "bench/bench_input.h"
#include "bench/bench_sizes.h"
#include "board/board_fen.h"
#include "board/piece.h"
#include "network/network_file.h"
#include "quorvane/evaluator.h"

namespace {

using namespace quorvane;

// Of a position on the board.
struct GamePosition : public Board {
  GamePosition() {
    given.side_to_move = currentMove.sideToMove;
    for (const Piece* const piece : board) {
      if (piece->kind == emptyKind) continue;
      auto& placed = given.pieces[given.count++];
      placed.piece =
          static_cast<std::uint8_t>(piece->kind + (piece->side == white ? 0 : QUORVANE_BLACK_PAWN));
      placed.square = static_cast<std::uint8_t>(piece->square);
    }
  }
  // Two rooks a side and a queen, and 24 pieces at least.
  bool isMiddlegame() const {
    const auto count = [&](int piece) {
      return std::count_if(given.pieces, given.pieces + given.count,
                           [&](const auto& placed) { return placed.piece == piece; });
    };
    return given.count >= 24 && count(QUORVANE_WHITE_QUEEN) + count(QUORVANE_BLACK_QUEEN) == 2;
  }

  quorvane_position given{};
  std::string fen = BoardFen::text();
};

// The positions in the order of play, which a cache meets like a search that goes on from one to the next.
struct Positions {
  Positions() {
    const char* const file = std::getenv("QUORVANE_BENCH_GAMES");
    BenchInput& input = file != nullptr ? inputOf(std::string(file)) : inputOf(4000);
    Network::saveNetwork();
    network = quorvane_network_open(networkFileName, nullptr, 0);
    constexpr std::size_t enough = 200000;
    for (std::int32_t index = 0; all.size() < enough; ++index) {
      PgnGame* const game = input.database.game(index);
      if (game == nullptr) break;
      Board::setupPosition(game->placement, game->sideToMove);
      for (DecodedMove move; game->nextMove(move) && Board::playGameMove(move);) {
        all.emplace_back();
        if (all.back().isMiddlegame()) middlegames.push_back(all.back());
      }
    }
  }

  const quorvane_network* network;
  std::vector<GamePosition> all;
  std::vector<GamePosition> middlegames;
};

const Positions& positions() {
  static const Positions made;
  return made;
}

// Runs `evaluate(position, value)` on one after the other.
template <typename Evaluate>
void forEachPosition(benchmark::State& state, const std::vector<GamePosition>& list, Evaluate evaluate) {
  std::size_t at = 0;
  while (state.KeepRunning()) {
    double value = 0.0;
    if (evaluate(list[at], value) != QUORVANE_OK) state.SkipWithError("a position was refused");
    benchmark::DoNotOptimize(value);
    at = at + 1 < list.size() ? at + 1 : 0;
  }
  state.counters["positions"] = static_cast<double>(list.size());
}

void BM_EvaluateMiddlegame(benchmark::State& state) {
  forEachPosition(state, positions().middlegames, [](const GamePosition& position, double& value) {
    return quorvane_evaluate(positions().network, &position.given, &value);
  });
}
BENCHMARK(BM_EvaluateMiddlegame);

void BM_Evaluate(benchmark::State& state) {
  forEachPosition(state, positions().all, [](const GamePosition& position, double& value) {
    return quorvane_evaluate(positions().network, &position.given, &value);
  });
}
BENCHMARK(BM_Evaluate);

void BM_EvaluateFen(benchmark::State& state) {
  forEachPosition(state, positions().all, [](const GamePosition& position, double& value) {
    return quorvane_evaluate_fen(positions().network, position.fen.c_str(), &value);
  });
}
BENCHMARK(BM_EvaluateFen);

// Over and over the first positions of the games, as many as the argument says: the cache knows most words of
// few of them, and of all meets new ones all the time.
void BM_EvaluateCached(benchmark::State& state) {
  const std::vector<GamePosition>& all = positions().all;
  const std::size_t count = std::min(all.size(), static_cast<std::size_t>(state.range(0)));
  const std::vector<GamePosition> first(all.begin(), all.begin() + static_cast<std::ptrdiff_t>(count));
  quorvane_cache* const cache = quorvane_cache_new(positions().network);
  forEachPosition(state, first, [=](const GamePosition& position, double& value) {
    return quorvane_evaluate_cached(cache, &position.given, &value);
  });
  quorvane_cache_free(cache);
}
BENCHMARK(BM_EvaluateCached)->Arg(100)->Arg(1000)->Arg(10000)->Arg(200000);

void BM_PositionType(benchmark::State& state) {
  forEachPosition(state, positions().all, [](const GamePosition& position, double&) {
    int type = 0;
    return quorvane_position_type(&position.given, &type);
  });
}
BENCHMARK(BM_PositionType);

}  // namespace

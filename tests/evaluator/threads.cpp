// threads NETWORK: eight threads on one network, with caches of their own and without, see the values that one sees
// alone. Built with -fsanitize=thread, it ends with status 66 where one disturbs another.

#include <cstdio>
#include <memory>
#include <random>
#include <thread>
#include <vector>

#include "quorvane/evaluator.h"

namespace {

using Values = std::vector<double>;

// The two kings and up to thirty pieces on squares of their own; no pawn on an outer rank.
quorvane_position randomPosition(std::mt19937& random) {
  const auto below = [&](unsigned limit) { return static_cast<unsigned>(random() % limit); };
  quorvane_position position{};
  std::uint64_t taken = 0;
  const auto add = [&](unsigned piece) {
    const unsigned kind = piece % 8;
    const unsigned square = kind == 0 ? 8 + below(48) : below(64);
    if ((taken >> square & 1) != 0) return;
    taken |= std::uint64_t{1} << square;
    auto& placed = position.pieces[position.count++];
    placed.piece = static_cast<std::uint8_t>(piece);
    placed.square = static_cast<std::uint8_t>(square);
  };
  add(QUORVANE_WHITE_KING);
  while (position.count < 2) add(QUORVANE_BLACK_KING);
  for (unsigned attempt = below(16); attempt > 0; --attempt) {
    add(QUORVANE_WHITE_PAWN + below(5));
    add(QUORVANE_BLACK_PAWN + below(5));
  }
  position.side_to_move = below(2) == 0 ? QUORVANE_WHITE : QUORVANE_BLACK;
  return position;
}

// Without those that are refused, which there are none of.
Values valuesOf(const quorvane_network* network, const std::vector<quorvane_position>& positions,
                bool cached) {
  Values values;
  const std::unique_ptr<quorvane_cache, decltype(&quorvane_cache_free)> cache(quorvane_cache_new(network),
                                                                              quorvane_cache_free);
  for (const quorvane_position& position : positions) {
    double value = 0.0;
    const int status = cached ? quorvane_evaluate_cached(cache.get(), &position, &value)
                              : quorvane_evaluate(network, &position, &value);
    if (status == QUORVANE_OK) values.push_back(value);
  }
  return values;
}

}  // namespace

int main(int count, char** arguments) {
  if (count != 2) return 2;
  char error[200];
  quorvane_network* const network = quorvane_network_open(arguments[1], error, sizeof error);
  if (network == nullptr) {
    std::fprintf(stderr, "%s: %s\n", arguments[1], error);
    return 1;
  }
  std::mt19937 random(1);
  std::vector<quorvane_position> positions(20000);
  for (quorvane_position& position : positions) position = randomPosition(random);

  const Values alone = valuesOf(network, positions, false);
  std::vector<Values> together(8);
  std::vector<std::thread> threads;
  for (std::size_t i = 0; i < together.size(); ++i)
    threads.emplace_back([&, i] { together[i] = valuesOf(network, positions, i % 2 == 0); });
  for (std::thread& thread : threads) thread.join();
  quorvane_network_close(network);

  bool same = alone.size() == positions.size();
  for (const Values& values : together) same = same && values == alone;
  std::printf("%zu positions in 8 threads: %s values\n", alone.size(), same ? "the same" : "OTHER");
  return same ? 0 : 1;
}

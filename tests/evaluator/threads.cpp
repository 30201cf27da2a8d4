// threads NETWORK: eight threads on one network, with caches of their own and without, see the values that
// one sees alone. Built with -fsanitize=thread, it ends with status 66 where one disturbs another.

#include <cstdio>
#include <random>
#include <thread>
#include <vector>

#include "quorvane/evaluator.h"

namespace {

using Values = std::vector<double>;

// The two kings and fifteen pieces between the outer ranks.
quorvane_position randomPosition(std::mt19937& random) {
  quorvane_position position{};
  const auto add = [&](unsigned piece, unsigned square) {
    position.pieces[position.count++] = {static_cast<std::uint8_t>(piece), static_cast<std::uint8_t>(square)};
  };
  add(QUORVANE_WHITE_KING, static_cast<unsigned>(random() % 8));
  add(QUORVANE_BLACK_KING, 56 + static_cast<unsigned>(random() % 8));
  for (unsigned square = 11; square < 56; square += 3) {
    const unsigned first = random() % 2 == 0 ? QUORVANE_WHITE_PAWN : QUORVANE_BLACK_PAWN;
    add(first + static_cast<unsigned>(random() % 5), square + static_cast<unsigned>(random() % 3));
  }
  position.side_to_move = random() % 2 == 0 ? QUORVANE_WHITE : QUORVANE_BLACK;
  return position;
}

// Those of the positions that are not refused.
Values valuesOf(const quorvane_network* network, const std::vector<quorvane_position>& positions,
                quorvane_cache* cache) {
  Values values;
  for (const quorvane_position& position : positions) {
    double value = 0.0;
    const int status = cache != nullptr ? quorvane_evaluate_cached(cache, &position, &value)
                                        : quorvane_evaluate(network, &position, &value);
    if (status == QUORVANE_OK) values.push_back(value);
  }
  quorvane_cache_free(cache);
  return values;
}

}  // namespace

int main(int count, char** arguments) {
  if (count != 2) return 2;
  quorvane_network* const network = quorvane_network_open(arguments[1], nullptr, 0);
  if (network == nullptr) return 1;
  std::mt19937 random(1);
  std::vector<quorvane_position> positions(20000);
  for (quorvane_position& position : positions) position = randomPosition(random);

  const Values alone = valuesOf(network, positions, nullptr);
  std::vector<Values> together(8);
  std::vector<std::thread> threads;
  for (std::size_t i = 0; i < together.size(); ++i)
    threads.emplace_back([&, i] {
      together[i] = valuesOf(network, positions, i % 2 == 0 ? quorvane_cache_new(network) : nullptr);
    });
  for (std::thread& thread : threads) thread.join();
  quorvane_network_close(network);

  bool same = alone.size() == positions.size();
  for (const Values& values : together) same = same && values == alone;
  std::printf("%zu positions in 8 threads: %s values\n", alone.size(), same ? "the same" : "OTHER");
  return same ? 0 : 1;
}

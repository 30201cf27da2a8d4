// Eight threads on one network, each with a cache of its own and without: all see the values that one sees alone. Meant
// to be built with -fsanitize=thread. Given a network file and a file with a FEN on each line.

#include <cstdio>
#include <fstream>
#include <memory>
#include <string>
#include <thread>
#include <vector>

#include "quorvane/evaluator.h"

namespace {

using Values = std::vector<double>;

Values valuesOf(const quorvane_network* network, const std::vector<std::string>& fens, bool cached) {
  Values values;
  const std::unique_ptr<quorvane_cache, decltype(&quorvane_cache_free)> cache(quorvane_cache_new(network),
                                                                              quorvane_cache_free);
  for (const std::string& fen : fens) {
    double value = 0.0;
    quorvane_position position;
    quorvane_explanation explanation;
    int status = quorvane_read_fen(fen.c_str(), &position);
    if (status == QUORVANE_OK) {
      status = cached ? quorvane_evaluate_cached(cache.get(), &position, &value)
                      : quorvane_explain(network, &position, &explanation);
    }
    if (status != QUORVANE_OK) return {};
    values.push_back(cached ? value : explanation.value);
  }
  return values;
}

}  // namespace

int main(int count, char** arguments) {
  if (count != 3) return 2;
  char error[200];
  quorvane_network* const network = quorvane_network_open(arguments[1], error, sizeof error);
  if (network == nullptr) {
    std::fprintf(stderr, "%s: %s\n", arguments[1], error);
    return 1;
  }
  std::vector<std::string> fens;
  std::ifstream lines(arguments[2]);
  for (std::string line; std::getline(lines, line);) fens.push_back(line);

  const Values alone = valuesOf(network, fens, false);
  std::vector<Values> together(8);
  std::vector<std::thread> threads;
  for (std::size_t i = 0; i < together.size(); ++i)
    threads.emplace_back([&, i] { together[i] = valuesOf(network, fens, i % 2 == 0); });
  for (std::thread& thread : threads) thread.join();
  quorvane_network_close(network);

  bool same = !alone.empty();
  for (const Values& values : together) same = same && values == alone;
  std::printf("%zu positions in 8 threads: %s\n", fens.size(), same ? "the same values" : "OTHER VALUES");
  return same ? 0 : 1;
}

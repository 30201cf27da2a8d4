#include <filesystem>
#include <fstream>
#include <numeric>
#include <vector>

#include "bench/bench_input.h"
#include "bench/bench_sizes.h"

namespace {

using namespace quorvane;

void countFile(benchmark::State& state, const std::string& file) {
  state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(std::filesystem::file_size(file)));
  state.counters["games/s"] = perSecond(state.range(0));
}

void BM_Load(benchmark::State& state) {
  const std::string& file = inputOf(state.range(0)).file;
  const auto games = static_cast<std::int32_t>(state.range(0));
  while (state.KeepRunning()) {
    PgnDatabase database;
    database.load(file);
    const bool complete = database.game(games - 1) != nullptr && database.game(games) == nullptr;
    if (!complete) state.SkipWithError("the file has other games");
  }
  countFile(state, file);
}
BENCHMARK(BM_Load)->Apply(atAllSizes);

// The floor of loading: the bytes are read, and each is looked at.
void BM_PlainRead(benchmark::State& state) {
  const std::string& file = inputOf(state.range(0)).file;
  while (state.KeepRunning()) {
    std::vector<char> text(std::filesystem::file_size(file));
    std::ifstream(file, std::ios::binary).read(text.data(), static_cast<std::streamsize>(text.size()));
    if (std::accumulate(text.begin(), text.end(), 0) == 0) state.SkipWithError("the file was not read");
  }
  countFile(state, file);
}
BENCHMARK(BM_PlainRead)->Apply(atAllSizes);

}  // namespace

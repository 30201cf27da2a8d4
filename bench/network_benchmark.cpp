#include <filesystem>

#include "bench/bench_input.h"
#include "bench/bench_sizes.h"
#include "network/network_file.h"

namespace {

using namespace quorvane;

std::size_t nodesOfAllTypes() {
  std::size_t count = 0;
  for (const NetworkRow& row : networkTable) count += nodeCount(row);
  return count;
}

void countNetwork(benchmark::State& state) {
  const auto bytes = static_cast<std::int64_t>(std::filesystem::file_size(networkFileName));
  state.SetBytesProcessed(state.iterations() * bytes);
  state.counters["nodes"] = static_cast<double>(nodesOfAllTypes());
}

void BM_SaveNetwork(benchmark::State& state) {
  inputOf(state.range(0));
  std::filesystem::remove(networkFileName);
  while (state.KeepRunning()) Network::saveNetwork();
  // Each node takes four values of four bytes.
  const bool whole = std::filesystem::file_size(networkFileName) > 16 * nodesOfAllTypes();
  if (!whole) state.SkipWithError("the file is too short");
  countNetwork(state);
}
BENCHMARK(BM_SaveNetwork)->Apply(atAllSizes);

void BM_LoadNetwork(benchmark::State& state) {
  inputOf(state.range(0));
  Network::saveNetwork();
  const std::size_t nodes = nodesOfAllTypes();
  while (state.KeepRunning()) {
    for (NetworkRow& row : networkTable) {
      for (NodeList& list : row) list.clear();
    }
    Network::loadNetwork();
    if (nodesOfAllTypes() != nodes) state.SkipWithError("other nodes than were saved");
  }
  countNetwork(state);
}
BENCHMARK(BM_LoadNetwork)->Apply(atAllSizes);

}  // namespace

// Any bytes load as a network.dat; what was loaded saves and loads as the same, and walks over it end.

#include <array>
#include <bit>
#include <vector>

#include "fuzz/fuzz_target.h"
#include "network/network.h"
#include "network/network_file.h"
#include "support/files.h"
#include "support/network_tables.h"

namespace quorvane {
namespace {

void loadIntoEmptyTable() {
  clearNetworkTable();
  Network::loadNetwork();
}

// What the file keeps of every node, behind its type and kind.
using StoredNode = std::array<std::uint32_t, 6>;

std::vector<StoredNode> storedNodes() {
  std::vector<StoredNode> nodes;
  for (std::uint32_t type = 0; type < positionTypeCount; ++type) {
    for (std::uint32_t kind = 0; kind < pieceKindCount; ++kind) {
      const NodeList& list = networkTable[static_cast<PositionType>(type)][static_cast<std::int32_t>(kind)];
      for (const PatternNode& node : list) {
        nodes.push_back({type, kind, node.mask, node.childBits, std::bit_cast<std::uint32_t>(node.weight),
                         static_cast<std::uint32_t>(node.skip)});
      }
      const PatternNode* last = nullptr;
      forEachFiringNode(list, ~ConfigurationWord{0}, [&](const PatternNode& node) {
        require(last < &node, "a walk goes forward, whatever the trees claim");
        last = &node;
      });
    }
  }
  return nodes;
}

}  // namespace
}  // namespace quorvane

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace quorvane;
  enterScratchFolder();
  writeFile(networkFileName, {reinterpret_cast<const char*>(data), size});
  loadIntoEmptyTable();
  const std::vector<StoredNode> loaded = storedNodes();
  Network::saveNetwork();
  const std::string saved = readFile(networkFileName);
  loadIntoEmptyTable();
  require(storedNodes() == loaded, "what was saved loads as the same");
  Network::saveNetwork();
  require(readFile(networkFileName) == saved, "what was loaded saves as the same bytes");
  return 0;
}

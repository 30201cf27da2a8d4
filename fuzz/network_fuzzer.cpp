// Any bytes load as a network.dat; what was loaded saves and loads as the same, and walks over it end.

#include <algorithm>
#include <bit>

#include "fuzz/fuzz_target.h"
#include "network/network.h"
#include "network/network_file.h"

namespace quorvane {
namespace {

void loadIntoEmptyTable() {
  for (NetworkRow& row : networkTable) row = {};
  Network::loadNetwork();
}

bool sameInFile(const PatternNode& a, const PatternNode& b) {
  return a.mask == b.mask && a.childBits == b.childBits && a.skip == b.skip &&
         std::bit_cast<std::uint32_t>(a.weight) == std::bit_cast<std::uint32_t>(b.weight);
}

}  // namespace
}  // namespace quorvane

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace quorvane;
  enterScratchFolder();
  writeFile(networkFileName, {reinterpret_cast<const char*>(data), size});
  loadIntoEmptyTable();
  const NetworkTable loaded = networkTable;
  Network::saveNetwork();
  const std::string saved = readFile(networkFileName);
  loadIntoEmptyTable();
  Network::saveNetwork();
  require(readFile(networkFileName) == saved, "what was loaded saves as the same bytes");

  for (PositionType type = 0; type < positionTypeCount; ++type) {
    for (std::int32_t kind = 0; kind < pieceKindCount; ++kind) {
      const NodeList& list = networkTable[type][kind];
      const NodeList& first = loaded[type][kind];
      require(std::equal(list.begin(), list.end(), first.begin(), first.end(), sameInFile),
              "what was saved loads as the same");
      // Trees may claim anything.
      const PatternNode* last = nullptr;
      forEachFiringNode(list, ~ConfigurationWord{0}, [&](const PatternNode& node) {
        require(last < &node, "a walk goes forward");
        last = &node;
      });
    }
  }
  return 0;
}

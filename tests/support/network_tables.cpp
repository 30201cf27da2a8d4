#include "support/network_tables.h"

#include "network/network_table.h"

namespace quorvane {

void clearNetworkTable() {
  for (NetworkRow& row : networkTable) {
    for (NodeList& list : row) list.clear();
  }
}

std::size_t nodeCount() {
  std::size_t count = 0;
  for (const NetworkRow& row : networkTable) {
    for (const NodeList& list : row) count += list.size();
  }
  return count;
}

std::string networkBytes(std::initializer_list<std::uint32_t> values) {
  std::string bytes;
  for (const std::uint32_t value : values) {
    for (int shift = 0; shift < 32; shift += 8) bytes += static_cast<char>(value >> shift);
  }
  return bytes;
}

}  // namespace quorvane

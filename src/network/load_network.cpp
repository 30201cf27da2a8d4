#include <array>
#include <bit>
#include <cstdint>
#include <fstream>
#include <iostream>

#include "network/network.h"
#include "network/network_file.h"

namespace quorvane {

namespace {

// Reads a 32-bit value, least significant byte first; false, and nothing read, where less than one is left.
bool readValue(std::istream& file, std::uint32_t& value) {
  std::array<char, 4> bytes;
  if (!file.read(bytes.data(), bytes.size())) return false;
  value = 0;
  for (std::size_t byte = 0; byte < bytes.size(); ++byte) {
    value |= std::uint32_t{static_cast<unsigned char>(bytes[byte])} << (8 * byte);
  }
  return true;
}

// Driven by the records alone, whatever their order. Nodes behind a selection that the table does not have
// are dropped.
void readRecords(std::istream& file) {
  std::uint32_t kind = 0;
  std::uint32_t type = 0;
  std::uint32_t head;
  while (readValue(file, head)) {
    if (head == controlRecord) {
      std::uint32_t code;
      if (!readValue(file, code) || code == endOfFile) return;
      if (code == selectKind && !readValue(file, kind)) return;
      if (code == selectType && !readValue(file, type)) return;
      continue;
    }
    std::uint32_t childBits;
    std::uint32_t weight;
    std::uint32_t skip;
    if (!readValue(file, childBits) || !readValue(file, weight) || !readValue(file, skip)) return;
    if (kind >= static_cast<std::uint32_t>(pieceKindCount) ||
        type >= static_cast<std::uint32_t>(positionTypeCount)) {
      continue;
    }
    PatternNode node{};
    node.mask = head;
    node.childBits = childBits;
    node.weight = std::bit_cast<float>(weight);
    node.skip = static_cast<std::int32_t>(skip);
    networkTable[static_cast<PositionType>(type)][static_cast<std::int32_t>(kind)].push_back(node);
  }
}

}  // namespace

void Network::loadNetwork() {
  std::ifstream file(networkFileName, std::ios::binary);
  if (!file) {
    std::cout << "Error: network.dat file not found!\n";
    return;
  }
  std::uint32_t version;
  if (!readValue(file, version) || version != networkFileVersion) {
    std::cout << "Error: wrong version of the network.dat file!\n";
    return;
  }
  readRecords(file);
}

}  // namespace quorvane

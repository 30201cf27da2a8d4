#include "network/fingerprint.h"

#include <bit>
#include <cstdint>
#include <cstdio>

namespace quorvane {

// The 64-bit FNV-1a hash (Fowler, Noll and Vo).
std::string fingerprintOf(const NetworkTable& table) {
  std::uint64_t hash = 0xcbf29ce484222325U;
  const auto add = [&hash](std::uint32_t number) {
    for (int shift = 0; shift < 32; shift += 8) hash = (hash ^ (number >> shift & 0xff)) * 0x100000001b3U;
  };
  for (const NetworkRow& row : table) {
    for (const NodeList& list : row) {
      add(static_cast<std::uint32_t>(list.size()));
      for (const PatternNode& node : list) {
        add(node.mask);
        add(std::bit_cast<std::uint32_t>(node.weight));
      }
    }
  }
  char text[17];
  std::snprintf(text, sizeof text, "%016llx", static_cast<unsigned long long>(hash));
  return text;
}

}  // namespace quorvane

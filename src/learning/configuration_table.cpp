#include "learning/configuration_table.h"

namespace quorvane {

std::size_t ConfigurationTable::slotOf(const PieceConfiguration& configuration) const {
  // Fibonacci hashing: the upper half of the product depends on every bit of the word.
  const std::uint64_t key = (std::uint64_t{configuration.kind} << 32) | configuration.word;
  const std::size_t mask = slots.size() - 1;
  auto slot = static_cast<std::size_t>((key * 0x9e3779b97f4a7c15U) >> 32) & mask;
  while (slots[slot] != freeSlot && configurations[slots[slot]] != configuration) slot = (slot + 1) & mask;
  return slot;
}

void ConfigurationTable::grow() {
  const std::size_t slotCount = slots.empty() ? smallestSlotCount : 2 * slots.size();
  slots.assign(slotCount, freeSlot);
  for (std::uint32_t number = 0; number < configurations.size(); ++number) {
    slots[slotOf(configurations[number])] = number;
  }
}

std::uint32_t ConfigurationTable::numberOf(const PieceConfiguration& configuration) {
  if (2 * configurations.size() >= slots.size()) grow();
  std::uint32_t& number = slots[slotOf(configuration)];
  if (number == freeSlot) {
    number = static_cast<std::uint32_t>(configurations.size());
    configurations.push_back(configuration);
  }
  return number;
}

void ConfigurationTable::clear() {
  configurations.clear();
  slots.clear();
}

}  // namespace quorvane

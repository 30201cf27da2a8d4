#include "learning/configuration_table.h"

namespace quorvane {

ConfigurationTable::Slot& ConfigurationTable::slotOf(std::vector<Slot>& slots, ConfigurationWord word) {
  // Fibonacci hashing: the upper half of the product depends on every bit of the word.
  const std::size_t mask = slots.size() - 1;
  auto slot = static_cast<std::size_t>((word * 0x9e3779b97f4a7c15U) >> 32) & mask;
  while (slots[slot].number != freeSlot && slots[slot].word != word) slot = (slot + 1) & mask;
  return slots[slot];
}

void ConfigurationTable::grow(Words& words) {
  constexpr std::size_t smallest = 256;
  std::vector<Slot> larger(words.slots.empty() ? smallest : 2 * words.slots.size(), {0, freeSlot});
  for (const Slot& slot : words.slots) {
    if (slot.number != freeSlot) slotOf(larger, slot.word) = slot;
  }
  words.slots = std::move(larger);
}

std::uint32_t ConfigurationTable::numberOf(const PieceConfiguration& configuration) {
  Words& words = wordsByKind[configuration.kind];
  if (2 * words.used >= words.slots.size()) grow(words);
  Slot& slot = slotOf(words.slots, configuration.word);
  if (slot.number == freeSlot) {
    slot = {configuration.word, static_cast<std::uint32_t>(configurations.size())};
    ++words.used;
    configurations.push_back(configuration);
  }
  return slot.number;
}

void ConfigurationTable::clear() {
  configurations.clear();
  wordsByKind = {};
}

}  // namespace quorvane

#include "learning/configuration_table.h"

#include <algorithm>

namespace quorvane {

std::size_t ConfigurationTable::firstSlotOf(const std::vector<Slot>& slots, ConfigurationWord word) {
  // Fibonacci hashing: the upper half of the product depends on every bit of the word.
  return static_cast<std::size_t>((word * 0x9e3779b97f4a7c15U) >> 32) & (slots.size() - 1);
}

ConfigurationTable::Slot& ConfigurationTable::slotOf(std::vector<Slot>& slots, ConfigurationWord word) {
  const std::size_t mask = slots.size() - 1;
  std::size_t slot = firstSlotOf(slots, word);
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
  if (4 * words.used >= 3 * words.slots.size()) grow(words);
  Slot& slot = slotOf(words.slots, configuration.word);
  if (slot.number == freeSlot) {
    slot = {configuration.word, static_cast<std::uint32_t>(configurations.size())};
    ++words.used;
    configurations.push_back(configuration);
  }
  return slot.number;
}

void ConfigurationTable::numberAll(std::span<const PieceConfiguration> many, std::uint32_t* numbers) {
  // The table is larger than the caches that are near: all first slots are read before any is looked at, so
  // that the reads wait for memory together.
  constexpr std::size_t atOnce = 32;
  for (std::size_t begin = 0; begin < many.size(); begin += atOnce) {
    const auto group = many.subspan(begin, std::min(atOnce, many.size() - begin));
    Slot found[atOnce];
    for (std::size_t i = 0; i < group.size(); ++i) {
      const std::vector<Slot>& slots = wordsByKind[group[i].kind].slots;
      found[i] = slots.empty() ? Slot{0, freeSlot} : slots[firstSlotOf(slots, group[i].word)];
    }
    for (std::size_t i = 0; i < group.size(); ++i) {
      const bool known = found[i].number != freeSlot && found[i].word == group[i].word;
      *numbers++ = known ? found[i].number : numberOf(group[i]);
    }
  }
}

void ConfigurationTable::clear() {
  configurations.clear();
  wordsByKind = {};
}

}  // namespace quorvane

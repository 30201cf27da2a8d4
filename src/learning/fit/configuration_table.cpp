#include "learning/fit/configuration_table.h"

namespace quorvane {

std::uint32_t ConfigurationTable::numberOf(const PieceConfiguration& configuration) {
  Words& words = wordsByKind[configuration.kind];
  Words::Slot& slot = words.slotOf(configuration.word);
  if (!slot.isFree()) return slot.value;
  const auto number = static_cast<std::uint32_t>(configurations.size());
  slot = {configuration.word, number};
  words.filled();
  configurations.push_back(configuration);
  return number;
}

void ConfigurationTable::numberAll(std::span<const PieceConfiguration> list, std::uint32_t wanted,
                                   std::uint32_t* numbers) {
  // The table is larger than the caches that are near: all first slots are read before any is looked at, so
  // that the reads wait for memory together.
  Words::Slot found[32];
  for (std::size_t i = 0; i < list.size(); ++i) {
    if ((wanted >> i & 1) != 0) found[i] = wordsByKind[list[i].kind].firstSlotOf(list[i].word);
  }
  for (std::size_t i = 0; i < list.size(); ++i) {
    if ((wanted >> i & 1) == 0) continue;
    const bool known = !found[i].isFree() && found[i].word == list[i].word;
    numbers[i] = known ? found[i].value : numberOf(list[i]);
  }
}

}  // namespace quorvane

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

}  // namespace quorvane

#ifndef QUORVANE_LEARNING_FIT_CONFIGURATION_TABLE_H_
#define QUORVANE_LEARNING_FIT_CONFIGURATION_TABLE_H_

#include <cassert>
#include <cstdint>
#include <vector>

#include "board/table.h"
#include "configurations/piece_configuration.h"
#include "learning/fit/word_table.h"

namespace quorvane {

// Numbers different configurations 0, 1, 2, ... in the order in which they first come.
class ConfigurationTable {
 public:
  // What no configuration has for its number: there are fewer than 2^32 - 1 different ones.
  static constexpr std::uint32_t noNumber = 0xffffffff;

  // Brings near what numberOf reads of this one first.
  void announce(const PieceConfiguration& configuration) const {
    wordsByKind[configuration.kind].prefetchSlotOf(configuration.word);
  }
  std::uint32_t numberOf(const PieceConfiguration& configuration) {
    assert(size() < noNumber);
    Words& words = wordsByKind[configuration.kind];
    Words::Slot& slot = words.slotOf(configuration.word);
    if (!slot.isFree()) return slot.value;
    const auto number = static_cast<std::uint32_t>(configurations.size());
    slot = {configuration.word, number};
    words.filled();
    configurations.push_back(configuration);
    return number;
  }

  const PieceConfiguration& operator[](std::uint32_t number) const {
    assert(number < size());
    return configurations[number];
  }
  std::size_t size() const { return configurations.size(); }

 private:
  using Words = WordTable<std::uint32_t, noNumber>;

  std::vector<PieceConfiguration> configurations;
  Table<Words, pieceKindCount> wordsByKind;
};

}  // namespace quorvane

#endif  // QUORVANE_LEARNING_FIT_CONFIGURATION_TABLE_H_

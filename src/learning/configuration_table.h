#ifndef QUORVANE_LEARNING_CONFIGURATION_TABLE_H_
#define QUORVANE_LEARNING_CONFIGURATION_TABLE_H_

#include <cstdint>
#include <span>
#include <vector>

#include "board/table.h"
#include "learning/sample.h"

namespace quorvane {

// Numbers different configurations 0, 1, 2, ... in the order in which they first come.
class ConfigurationTable {
 public:
  // The number of a configuration, a new one if it has none yet. At most 2^32 - 1 different ones.
  std::uint32_t numberOf(const PieceConfiguration& configuration);
  // The same for many, one number each.
  void numberAll(std::span<const PieceConfiguration> many, std::uint32_t* numbers);

  const PieceConfiguration& operator[](std::uint32_t number) const { return configurations[number]; }
  std::size_t size() const { return configurations.size(); }

  void clear();

 private:
  static constexpr std::uint32_t freeSlot = 0xffffffff;

  struct Slot {
    ConfigurationWord word;
    std::uint32_t number;  // freeSlot in a free one
  };

  // The words of one kind: an open-addressed hash table with linear probing.
  struct Words {
    std::vector<Slot> slots;  // a power of two, at most three quarters of it in use
    std::size_t used = 0;
  };

  static std::size_t firstSlotOf(const std::vector<Slot>& slots, ConfigurationWord word);
  static Slot& slotOf(std::vector<Slot>& slots, ConfigurationWord word);
  static void grow(Words& words);

  std::vector<PieceConfiguration> configurations;
  Table<Words, pieceKindCount> wordsByKind;
};

}  // namespace quorvane

#endif  // QUORVANE_LEARNING_CONFIGURATION_TABLE_H_

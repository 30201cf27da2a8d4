#ifndef QUORVANE_LEARNING_CONFIGURATION_TABLE_H_
#define QUORVANE_LEARNING_CONFIGURATION_TABLE_H_

#include <cstdint>
#include <vector>

#include "learning/sample.h"

namespace quorvane {

// Numbers different configurations 0, 1, 2, ... in the order in which they first come: an open-addressed hash
// table with linear probing over an array of the configurations.
class ConfigurationTable {
 public:
  // The number of `configuration`, a new one if it has none yet. At most 2^32 - 1 different ones.
  std::uint32_t numberOf(const PieceConfiguration& configuration);

  const PieceConfiguration& operator[](std::uint32_t number) const { return configurations[number]; }
  std::size_t size() const { return configurations.size(); }

  void clear();

 private:
  static constexpr std::uint32_t freeSlot = 0xffffffff;
  static constexpr std::size_t smallestSlotCount = 1024;

  std::size_t slotOf(const PieceConfiguration& configuration) const;
  void grow();

  std::vector<PieceConfiguration> configurations;
  std::vector<std::uint32_t> slots;  // numbers; a power of two, at most half of it in use
};

}  // namespace quorvane

#endif  // QUORVANE_LEARNING_CONFIGURATION_TABLE_H_

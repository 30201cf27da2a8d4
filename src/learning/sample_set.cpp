#include "learning/sample_set.h"

namespace quorvane {

void SampleSet::clear() {
  headers.clear();
  headers.reserve(smallestCapacity);
  blocks.clear();
  usedOfLastBlock = blockSize;
  table.clear();
}

void SampleSet::append(std::span<const PieceConfiguration> ownList,
                       std::span<const PieceConfiguration> opposingList, std::int32_t target) {
  const std::size_t length = ownList.size() + opposingList.size();
  if (usedOfLastBlock + length > blockSize) {
    blocks.push_back(std::make_unique_for_overwrite<std::uint32_t[]>(blockSize));
    usedOfLastBlock = 0;
  }
  std::uint32_t* const row = blocks.back().get() + usedOfLastBlock;
  usedOfLastBlock += length;
  table.numberAll(ownList, row);
  table.numberAll(opposingList, row + ownList.size());
  headers.push_back({row, target, static_cast<std::uint8_t>(ownList.size()),
                     static_cast<std::uint8_t>(opposingList.size())});
}

SampleSet::View SampleSet::view(std::size_t index) const {
  const Header& header = headers[index];
  return {{header.row, header.ownCount}, {header.row + header.ownCount, header.opposingCount}, header.target};
}

Sample SampleSet::sample(std::size_t index) const {
  const View compact = view(index);
  Sample full;
  full.target = compact.target;
  for (const std::uint32_t number : compact.ownList) full.ownList.push_back(table[number]);
  for (const std::uint32_t number : compact.opposingList) full.opposingList.push_back(table[number]);
  return full;
}

}  // namespace quorvane

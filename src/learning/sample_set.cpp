#include "learning/sample_set.h"

namespace quorvane {

void SampleSet::clear() {
  headers.clear();
  headers.reserve(smallestCapacity);
  blocks.clear();
  usedOfLastBlock = blockSize;
  table.clear();
}

void SampleSet::append(const Sample& sample) {
  const std::size_t length = sample.ownList.size() + sample.opposingList.size();
  if (usedOfLastBlock + length > blockSize) {
    blocks.push_back(std::make_unique_for_overwrite<std::uint32_t[]>(blockSize));
    usedOfLastBlock = 0;
  }
  std::uint32_t* const row = blocks.back().get() + usedOfLastBlock;
  usedOfLastBlock += length;
  std::uint32_t* next = row;
  for (const PieceConfiguration& piece : sample.ownList) *next++ = table.numberOf(piece);
  for (const PieceConfiguration& piece : sample.opposingList) *next++ = table.numberOf(piece);
  headers.push_back({row, sample.target, static_cast<std::uint8_t>(sample.ownList.size()),
                     static_cast<std::uint8_t>(sample.opposingList.size())});
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

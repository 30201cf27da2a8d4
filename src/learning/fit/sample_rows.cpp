#include "learning/fit/sample_rows.h"

#include <algorithm>

#include "learning/fit/prefetch.h"

namespace quorvane {

namespace {

// Polynomial hashing by Horner's rule, both lists at once, so that neither waits for the other.
std::uint32_t hashOf(std::span<const std::uint32_t> ownList, std::span<const std::uint32_t> opposingList) {
  constexpr std::uint64_t factor = 0x9e3779b97f4a7c15U;
  std::uint64_t own = ownList.size();
  std::uint64_t opposing = opposingList.size();
  const std::size_t common = std::min(ownList.size(), opposingList.size());
  for (std::size_t i = 0; i < common; ++i) {
    own = (own + ownList[i]) * factor;
    opposing = (opposing + opposingList[i]) * factor;
  }
  for (const std::uint32_t number : ownList.subspan(common)) own = (own + number) * factor;
  for (const std::uint32_t number : opposingList.subspan(common)) opposing = (opposing + number) * factor;
  const std::uint64_t both = (own ^ (opposing >> 29)) * factor + opposing;
  return static_cast<std::uint32_t>((both * factor) >> 32);
}

}  // namespace

bool SampleRows::holds(std::uint32_t row, std::span<const std::uint32_t> ownList,
                       std::span<const std::uint32_t> opposingList) const {
  const View view = (*this)[row];
  return std::ranges::equal(view.ownList, ownList) && std::ranges::equal(view.opposingList, opposingList);
}

void SampleRows::grow() {
  constexpr std::size_t smallest = 1024;
  std::vector<Slot> larger(slots.empty() ? smallest : 2 * slots.size());
  for (const Slot& slot : slots) {
    if (slot.row == noRow) continue;
    std::size_t index = slot.hash & (larger.size() - 1);
    while (larger[index].row != noRow) index = (index + 1) & (larger.size() - 1);
    larger[index] = slot;
  }
  slots = std::move(larger);
}

std::uint32_t SampleRows::announce(std::span<const std::uint32_t> ownList,
                                   std::span<const std::uint32_t> opposingList) const {
  const std::uint32_t hash = hashOf(ownList, opposingList);
  if (!slots.empty()) prefetch(&slots[hash & (slots.size() - 1)]);
  return hash;
}

std::uint32_t SampleRows::numberOf(std::span<const std::uint32_t> ownList,
                                   std::span<const std::uint32_t> opposingList, std::uint32_t hash) {
  if (2 * size() >= slots.size()) grow();
  std::size_t index = hash & (slots.size() - 1);
  for (; slots[index].row != noRow; index = (index + 1) & (slots.size() - 1)) {
    if (slots[index].hash == hash && holds(slots[index].row, ownList, opposingList)) return slots[index].row;
  }
  const auto row = static_cast<std::uint32_t>(size());
  slots[index] = {row, hash};
  numbers.insert(numbers.end(), ownList.begin(), ownList.end());
  numbers.insert(numbers.end(), opposingList.begin(), opposingList.end());
  ends.push_back(numbers.size());
  ownCounts.push_back(static_cast<std::uint8_t>(ownList.size()));
  return row;
}

void SampleRows::finish() {
  slots = {};
  numbers.resize(numbers.size() + lookAhead);
}

void SampleRows::renumber(const std::vector<std::uint32_t>& newNumbers) {
  if (ends.empty()) return;
  for (std::uint32_t& number : std::span(numbers).first(ends.back())) number = newNumbers[number];
}

}  // namespace quorvane

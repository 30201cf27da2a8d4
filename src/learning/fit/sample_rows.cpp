#include "learning/fit/sample_rows.h"

#include <algorithm>
#include <cassert>

#include "board/types.h"

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

std::uint32_t SampleRows::announce(std::span<const std::uint32_t> ownList,
                                   std::span<const std::uint32_t> opposingList) const {
  const std::uint32_t hash = hashOf(ownList, opposingList);
  rowsByHash.prefetchSlotOf(hash);
  return hash;
}

std::uint32_t SampleRows::indexOf(std::span<const std::uint32_t> ownList,
                                  std::span<const std::uint32_t> opposingList, std::uint32_t hash) {
  assert(ownList.size() <= piecesPerSide && opposingList.size() <= piecesPerSide);
  const auto holds = [&](std::uint32_t row) {
    const View view = (*this)[row];
    return std::ranges::equal(view.ownList, ownList) && std::ranges::equal(view.opposingList, opposingList);
  };
  auto& slot = rowsByHash.slotOf(hash, holds);
  if (!slot.isFree()) return slot.value;
  const auto row = static_cast<std::uint32_t>(size());
  slot = {hash, row};
  rowsByHash.filled();
  pieces.insert(pieces.end(), ownList.begin(), ownList.end());
  pieces.insert(pieces.end(), opposingList.begin(), opposingList.end());
  ends.push_back(pieces.size());
  ownCounts.push_back(static_cast<std::uint8_t>(ownList.size()));
  return row;
}

void SampleRows::place(const std::vector<std::uint32_t>& places) {
  assert(pieces.size() == (ends.empty() ? 0 : ends.back()));
  for (std::uint32_t& piece : pieces) piece = places[piece];
  pieces.resize(pieces.size() + lookAhead);
}

}  // namespace quorvane

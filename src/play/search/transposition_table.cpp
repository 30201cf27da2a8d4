#include "play/search/transposition_table.h"

#include <algorithm>

namespace quorvane::play {

void TranspositionTable::resize(std::int32_t megabytes) {
  constexpr std::size_t megabyte = std::size_t{1} << 20;
  const std::size_t count = static_cast<std::size_t>(megabytes) * (megabyte / sizeof(Bucket));
  if (count != buckets.size()) buckets = std::vector<Bucket>(count);
  clear();
}

void TranspositionTable::clear() {
  std::ranges::fill(buckets, Bucket{});
  age = 0;
}

const Remembered* TranspositionTable::find(std::uint64_t key) const {
  for (const Remembered& entry : buckets[indexOf(key)].entries) {
    if (entry.check == static_cast<std::uint32_t>(key) && entry.bound() != Bound::none) return &entry;
  }
  return nullptr;
}

void TranspositionTable::remember(std::uint64_t key, Move move, std::int32_t score, std::int32_t judgement,
                                  std::int32_t depth, Bound bound) {
  const auto check = static_cast<std::uint32_t>(key);
  // What the present search has not met is worth eight plies less.
  const auto worth = [this](const Remembered& entry) { return entry.depth + (isPresent(entry) ? 8 : 0); };
  Remembered* place = nullptr;
  for (Remembered& entry : buckets[indexOf(key)].entries) {
    if (entry.check == check && entry.bound() != Bound::none) {
      place = &entry;
      break;
    }
    if (place == nullptr || worth(entry) < worth(*place)) place = &entry;
  }
  std::uint16_t stored = packed(move);
  if (place->check == check) {
    if (stored == 0) stored = place->move;
    // What was searched much deeper stays.
    constexpr std::int32_t margin = 3;
    if (bound != Bound::exact && isPresent(*place) && depth + margin < place->depth) return;
  }
  *place = {check,
            stored,
            static_cast<std::int16_t>(score),
            static_cast<std::int16_t>(judgement),
            static_cast<std::uint8_t>(depth),
            static_cast<std::uint8_t>(age | static_cast<std::uint8_t>(bound))};
}

std::int32_t TranspositionTable::permilleUsed() const {
  constexpr std::size_t sample = 1000 / bucketSize;
  std::int32_t used = 0;
  for (std::size_t i = 0; i < std::min(sample, buckets.size()); ++i) {
    for (const Remembered& entry : buckets[i].entries) {
      if (entry.bound() != Bound::none && isPresent(entry)) ++used;
    }
  }
  return used;
}

}  // namespace quorvane::play

#include "learning/sample_set.h"

#include <algorithm>
#include <bit>
#include <cassert>

#include "learning/sample_walk.h"

namespace quorvane {

namespace {

constexpr std::uint64_t packed(const PieceConfiguration& piece) {
  return std::uint64_t{piece.kind} << 32 | piece.word;
}
constexpr std::uint64_t noPiece = packed({0, emptyKind});

// The seats at which the rows differ, as a set.
template <typename Row>
std::uint32_t differences(const Row& a, const Row& b) {
  std::uint32_t seats = 0;
  for (std::int32_t seat = 0; seat < SampleSet::seatCount; ++seat) {
    seats |= (a[seat] != b[seat] ? 1U : 0U) << seat;
  }
  return seats;
}

}  // namespace

void SampleSet::clear() {
  forms.clear();
  for (Block& block : blocks) block.used = 0;
  blocksInUse = 0;
  pieces = 0;
  while (capacity() < smallestCapacity) addBlock();
  for (Row& row : recent) std::fill(row.begin(), row.end(), noPiece);
  newest = 0;
}

void SampleSet::release() {
  blocks.clear();
  room = 0;
  forms.clear();
  forms.shrink_to_fit();
  clear();
}

void SampleSet::addBlock() {
  const std::size_t size = std::max(room, smallestCapacity * longestRecord);
  blocks.push_back({std::make_unique_for_overwrite<std::uint32_t[]>(size), size, 0});
  room += size;
}

std::uint32_t* SampleSet::recordStart() {
  const bool fits =
      blocksInUse != 0 && blocks[blocksInUse - 1].used + longestRecord <= blocks[blocksInUse - 1].size;
  if (!fits && ++blocksInUse > blocks.size()) addBlock();
  Block& block = blocks[blocksInUse - 1];
  return block.numbers.get() + block.used;
}

void SampleSet::append(std::span<const PieceConfiguration> ownList,
                       std::span<const PieceConfiguration> opposingList, std::int32_t target) {
  assert(ownList.size() <= piecesPerSide && opposingList.size() <= piecesPerSide);
  Row row;
  std::fill(std::ranges::transform(ownList, row.begin(), packed).out, row.begin() + piecesPerSide, noPiece);
  std::fill(std::ranges::transform(opposingList, row.begin() + piecesPerSide, packed).out, row.end(),
            noPiece);

  const std::int32_t older = 1 - newest;
  std::uint32_t changed = differences(row, recent[older]);
  const std::uint32_t changedFromLast = differences(row, recent[newest]);
  const bool followsLast = std::popcount(changedFromLast) < std::popcount(changed);
  if (followsLast) changed = changedFromLast;
  const Row& before = recent[followsLast ? newest : older];

  std::uint32_t* const start = recordStart();
  std::uint32_t* record = start;
  *record++ = static_cast<std::uint32_t>(target);
  *record++ = changed;
  bool changesKinds = false;
  for (std::int32_t seat = 0; seat < seatCount; ++seat) {
    changesKinds |= row[seat] >> 32 != before[seat] >> 32;
  }
  if (changesKinds) {
    std::fill_n(record, seatCount / kindsPerNumber, 0U);
    for (std::size_t seat = 0; seat < seatCount; ++seat) {
      const auto kind = static_cast<std::uint32_t>(row.entries[seat] >> 32);
      record[seat / kindsPerNumber] |= kind << seat % kindsPerNumber * 4;
    }
    record += seatCount / kindsPerNumber;
  }
  for (std::uint32_t left = changed; left != 0; left &= left - 1) {
    const std::uint64_t piece = row[std::countr_zero(left)];
    if (piece != noPiece) *record++ = static_cast<ConfigurationWord>(piece);
  }
  blocks[blocksInUse - 1].used += static_cast<std::size_t>(record - start);
  pieces += ownList.size() + opposingList.size();
  forms.push_back({followsLast, changesKinds});
  recent[older] = row;
  newest = older;
}

Sample SampleSet::sample(std::size_t index) const {
  assert(index < size());
  SampleWalk walk(*this);
  for (std::size_t read = 0; read <= index; ++read) walk.next();
  const auto copy = [](std::span<const PieceConfiguration> list) {
    return std::vector<PieceConfiguration>(list.begin(), list.end());
  };
  return {copy(walk.ownList()), copy(walk.opposingList()), walk.target()};
}

}  // namespace quorvane

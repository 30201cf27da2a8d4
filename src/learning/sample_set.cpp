#include "learning/sample_set.h"

#include <algorithm>
#include <bit>
#include <cassert>

#include "learning/sample_walk.h"

namespace quorvane {

namespace {

constexpr auto setOfSeat = [] {
  Table<std::uint32_t, SampleSet::seatCount> table{};
  for (std::int32_t seat = 0; seat < SampleSet::seatCount; ++seat) table[seat] = std::uint32_t{1} << seat;
  return table;
}();

}  // namespace

void SampleSet::Row::put(std::int32_t seat, std::span<const PieceConfiguration> list) {
  for (const PieceConfiguration& piece : list) {
    words[seat] = piece.word;
    kinds[seat++] = piece.kind;
  }
}

std::uint32_t SampleSet::Row::differences(const Row& other) const {
  // Without branches, so that several seats are compared at once.
  std::uint32_t seats = 0;
  for (std::int32_t seat = 0; seat < seatCount; ++seat)
    seats |= setOfSeat[seat] & (0U - std::uint32_t{words[seat] != other.words[seat]});
  for (std::int32_t seat = 0; seat < seatCount; ++seat)
    seats |= setOfSeat[seat] & (0U - std::uint32_t{kinds[seat] != other.kinds[seat]});
  return seats;
}

void SampleSet::clear() {
  forms.clear();
  for (Block& block : blocks) block.used = 0;
  blocksInUse = 0;
  pieces = 0;
  while (capacity() < smallestCapacity) addBlock();
  recent = {};
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
  row.put(0, ownList);
  row.put(piecesPerSide, opposingList);

  const std::int32_t older = 1 - newest;
  std::uint32_t changed = row.differences(recent[older]);
  const std::uint32_t changedFromLast = row.differences(recent[newest]);
  const bool followsLast = std::popcount(changedFromLast) < std::popcount(changed);
  if (followsLast) changed = changedFromLast;
  const Row& before = recent[followsLast ? newest : older];

  std::uint32_t* const start = recordStart();
  std::uint32_t* record = start;
  *record++ = static_cast<std::uint32_t>(target);
  *record++ = changed;
  const bool changesKinds = !std::ranges::equal(row.kinds, before.kinds);
  if (changesKinds) {
    std::fill_n(record, seatCount / kindsPerNumber, 0U);
    for (std::size_t seat = 0; seat < seatCount; ++seat) {
      const std::uint32_t kind = row.kinds.entries[seat];
      record[seat / kindsPerNumber] |= kind << seat % kindsPerNumber * 4;
    }
    record += seatCount / kindsPerNumber;
  }
  for (std::uint32_t left = changed; left != 0; left &= left - 1) {
    const std::int32_t seat = std::countr_zero(left);
    *record = row.words[seat];
    record += row.kinds[seat] != emptyKind ? 1 : 0;
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

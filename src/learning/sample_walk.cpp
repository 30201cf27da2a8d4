#include "learning/sample_walk.h"

#include <bit>

namespace quorvane {

SampleWalk::SampleWalk(const SampleSet& set) : samples(set) {
  if (!set.empty()) record = set.blocks[0].numbers.get();
  for (Row& row : rows) {
    for (PieceConfiguration& piece : row.pieces) piece = {0, emptyKind};
  }
}

void SampleWalk::readKinds(Row& row) {
  row.ownCount = 0;
  row.opposingCount = 0;
  for (std::size_t seat = 0; seat < SampleSet::seatCount; ++seat) {
    const std::uint32_t kinds = record[seat / SampleSet::kindsPerNumber];
    const auto kind = static_cast<std::uint8_t>(kinds >> seat % SampleSet::kindsPerNumber * 4 & 15);
    row.pieces.entries[seat].kind = kind;
    if (kind != emptyKind) ++(seat < piecesPerSide ? row.ownCount : row.opposingCount);
  }
  record += SampleSet::seatCount / SampleSet::kindsPerNumber;
}

bool SampleWalk::next() {
  if (index == samples.size()) return false;
  const SampleSet::Block& present = samples.blocks[block];
  if (record == present.numbers.get() + present.used) record = samples.blocks[++block].numbers.get();
  const SampleSet::Form form = samples.forms[index++];
  newest = 1 - newest;
  Row& row = rows[newest];
  if (form.followsLast) row = rows[1 - newest];
  presentTarget = static_cast<std::int32_t>(*record++);
  changed = *record++;
  if (form.changesKinds) readKinds(row);
  for (std::uint32_t left = changed; left != 0; left &= left - 1) {
    PieceConfiguration& piece = row.pieces[std::countr_zero(left)];
    if (piece.kind != emptyKind) piece.word = *record++;
  }
  if (form.followsLast) changed = ~std::uint32_t{0};
  return true;
}

}  // namespace quorvane

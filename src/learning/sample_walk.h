#ifndef QUORVANE_LEARNING_SAMPLE_WALK_H_
#define QUORVANE_LEARNING_SAMPLE_WALK_H_

#include <cassert>
#include <cstdint>
#include <span>

#include "learning/sample_set.h"

namespace quorvane {

// Reads the samples of a set in their order:
//
//   for (SampleWalk walk(set); walk.next();) use(walk.ownList(), walk.target());
//
// The set must stay as it is meanwhile.
class SampleWalk {
 public:
  // Stands in front of the first sample.
  explicit SampleWalk(const SampleSet& set);

  // Goes on to the next sample; false behind the last one.
  bool next();

  // Of the present sample; valid until the next call of next().
  std::span<const PieceConfiguration> ownList() const { return {row().pieces.begin(), row().ownCount}; }
  std::span<const PieceConfiguration> opposingList() const {
    return {row().pieces.begin() + piecesPerSide, row().opposingCount};
  }
  // The one at that seat, which must be one of these.
  const PieceConfiguration& piece(std::int32_t seat) const {
    assert(row().pieces[seat].kind != emptyKind);
    return row().pieces[seat];
  }
  std::int32_t target() const { return presentTarget; }

  // The seats at which the present sample may differ from the one before the last, as a set; and whose turn
  // it is of the two rows that hold every other sample: 0 or 1.
  std::uint32_t changedSeats() const { return changed; }
  std::int32_t turn() const { return newest; }

 private:
  struct Row {
    Table<PieceConfiguration, SampleSet::seatCount> pieces;
    std::uint8_t ownCount = 0;
    std::uint8_t opposingCount = 0;
  };

  const Row& row() const { return rows[newest]; }
  void readKinds(Row& row);

  const SampleSet& samples;
  std::size_t index = 0;  // of the next sample
  std::size_t block = 0;
  const std::uint32_t* record = nullptr;  // of the next sample
  Table<Row, 2> rows;                     // the last two samples, each in turn
  std::int32_t newest = 0;
  std::int32_t presentTarget = 0;
  std::uint32_t changed = 0;
};

}  // namespace quorvane

#endif  // QUORVANE_LEARNING_SAMPLE_WALK_H_

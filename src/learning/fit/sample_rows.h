#ifndef QUORVANE_LEARNING_FIT_SAMPLE_ROWS_H_
#define QUORVANE_LEARNING_FIT_SAMPLE_ROWS_H_

#include <cstdint>
#include <span>
#include <vector>

namespace quorvane {

// The pieces of samples, as numbers: own ones, then opposing ones. Openings come again and again, so samples with equal lists
// share one row.
class SampleRows {
 public:
  // How many numbers, 0 all, stand behind those of the last row once finish() has run: who reads a row may look so far
  // ahead.
  static constexpr std::size_t lookAhead = 64;

  // For rows of at most so many numbers in all. Memory that no row comes to fill is not touched.
  explicit SampleRows(std::size_t mostNumbers) { numbers.reserve(mostNumbers + lookAhead); }

  // The hash of these lists, which numberOf wants; brings near what it reads of them first.
  std::uint32_t announce(std::span<const std::uint32_t> ownList,
                         std::span<const std::uint32_t> opposingList) const;

  // The number of the row with these lists, a new one if there is none yet: from 0 on, in the order in which they
  // first come. At most 16 numbers a list, and fewer than 2^32 rows.
  std::uint32_t numberOf(std::span<const std::uint32_t> ownList, std::span<const std::uint32_t> opposingList,
                         std::uint32_t hash);

  // Gives back what only numberOf needs; no row may come behind it.
  void finish();

  // Puts newNumbers[n] into the place of every number n.
  void renumber(const std::vector<std::uint32_t>& newNumbers);

  std::size_t size() const { return ends.size(); }

  struct View {
    std::span<const std::uint32_t> ownList;
    std::span<const std::uint32_t> opposingList;
  };
  View operator[](std::size_t row) const {
    const std::size_t begin = row == 0 ? 0 : ends[row - 1];
    const std::uint32_t* const opposing = numbers.data() + begin + ownCounts[row];
    return {{numbers.data() + begin, opposing}, {opposing, numbers.data() + ends[row]}};
  }

 private:
  static constexpr std::uint32_t noRow = 0xffffffff;

  // Of an open-addressed hash table with linear probing.
  struct Slot {
    std::uint32_t row = noRow;
    std::uint32_t hash = 0;
  };

  bool holds(std::uint32_t row, std::span<const std::uint32_t> ownList,
             std::span<const std::uint32_t> opposingList) const;
  void grow();

  std::vector<std::uint32_t> numbers;
  std::vector<std::size_t> ends;
  std::vector<std::uint8_t> ownCounts;
  std::vector<Slot> slots;  // a power of two, at most half of it in use
};

}  // namespace quorvane

#endif  // QUORVANE_LEARNING_FIT_SAMPLE_ROWS_H_

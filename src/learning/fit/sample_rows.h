#ifndef QUORVANE_LEARNING_FIT_SAMPLE_ROWS_H_
#define QUORVANE_LEARNING_FIT_SAMPLE_ROWS_H_

#include <algorithm>
#include <cassert>
#include <cstdint>
#include <span>
#include <vector>

#include "learning/fit/prefetch.h"
#include "learning/fit/word_table.h"

namespace quorvane {

// The pieces of samples, each as the number of its configuration, and from place() on as its place. Openings
// come again and again, so samples with equal lists share one row.
class SampleRows {
 public:
  // The own or the opposing pieces of a row.
  class List {
   public:
    const std::uint32_t* begin() const { return first; }
    const std::uint32_t* end() const { return last; }

    // Calls visit(place) for every piece, and brings near what `table` holds by the place of pieces further
    // on in the rows. REQUIRES: place() has run.
    template <typename T, typename Visit>
    void forEachAhead(const std::vector<T>& table, Visit visit) const {
      for (const std::uint32_t* piece = first; piece != last; ++piece) {
        prefetch(&table[piece[lookAhead]]);
        visit(*piece);
      }
    }

   private:
    friend class SampleRows;
    List(const std::uint32_t* begin, const std::uint32_t* end) : first(begin), last(end) {}

    const std::uint32_t* first;
    const std::uint32_t* last;
  };

  struct View {
    List ownList;
    List opposingList;
  };

  // For rows of at most so many pieces in all. Memory that no row comes to fill is not touched.
  explicit SampleRows(std::size_t mostPieces) { pieces.reserve(mostPieces + lookAhead); }

  // The hash of these lists, which indexOf wants; brings near what it reads of them first.
  std::uint32_t announce(std::span<const std::uint32_t> ownList,
                         std::span<const std::uint32_t> opposingList) const;

  // Which row has these lists, a new one if there is none yet: from 0 on, in the order in which they first
  // come. At most 16 numbers a list, and fewer than 2^32 - 1 rows. REQUIRES: place() has not run.
  std::uint32_t indexOf(std::span<const std::uint32_t> ownList, std::span<const std::uint32_t> opposingList,
                        std::uint32_t hash);

  // Gives back what only indexOf needs.
  void finish() { rowsByHash = {}; }
  // Puts places[n] into the stead of every number n; once, when all rows are there.
  void place(const std::vector<std::uint32_t>& places);

  std::size_t size() const { return ends.size(); }
  View operator[](std::size_t row) const {
    const std::uint32_t* const own = pieces.data() + (row == 0 ? 0 : ends[row - 1]);
    const std::uint32_t* const opposing = own + ownCounts[row];
    return {{own, opposing}, {opposing, pieces.data() + ends[row]}};
  }

  // The sum of the row's own pieces in a table by place minus that of its opposing ones. REQUIRES: place()
  // has run.
  double difference(std::size_t row, const std::vector<double>& table) const {
    assert(pieces.size() == ends.back() + lookAhead);
    const auto [own, opposing] = (*this)[row];
    double ownSum = 0.0;
    double opposingSum = 0.0;
    const std::ptrdiff_t common = std::min(own.last - own.first, opposing.last - opposing.first);
    // Side by side, so that neither sum waits for the other.
    for (std::ptrdiff_t i = 0; i < common; ++i) {
      prefetch(&table[own.first[i + lookAhead]]);
      prefetch(&table[opposing.first[i + lookAhead]]);
      ownSum += table[own.first[i]];
      opposingSum += table[opposing.first[i]];
    }
    List(own.first + common, own.last).forEachAhead(table, [&](auto place) { ownSum += table[place]; });
    List(opposing.first + common, opposing.last).forEachAhead(table, [&](auto place) {
      opposingSum += table[place];
    });
    return ownSum - opposingSum;
  }

 private:
  static constexpr std::uint32_t noRow = 0xffffffff;
  // How far a pass looks ahead, in pieces; as many of the place 0 stand behind the last row.
  static constexpr std::ptrdiff_t lookAhead = 64;

  std::vector<std::uint32_t> pieces;
  std::vector<std::size_t> ends;
  std::vector<std::uint8_t> ownCounts;
  WordTable<std::uint32_t, noRow> rowsByHash;
};

}  // namespace quorvane

#endif  // QUORVANE_LEARNING_FIT_SAMPLE_ROWS_H_

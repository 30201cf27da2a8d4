#ifndef QUORVANE_BOARD_ROWS_H_
#define QUORVANE_BOARD_ROWS_H_

#include <cassert>
#include <cstdint>
#include <limits>
#include <span>
#include <utility>
#include <vector>

namespace quorvane {

// Rows of varying length, one behind the other in one array, with the place where each ends: far less memory
// than arrays of their own would take.
//
// `Ends` is a std::vector, or a std::array for a fixed number of rows, which are empty at first. What its
// type of places cannot tell any more is cut off. `Array` is a std::vector or like one.
template <typename T, typename Ends = std::vector<std::size_t>, typename Array = std::vector<T>>
class Rows {
  using End = typename Ends::value_type;

 public:
  Rows() = default;
  // Takes over an array that is cut into rows already.
  Rows(Array array, Ends ends) : values(std::move(array)), rowEnds(std::move(ends)) {}

  std::size_t size() const { return rowEnds.size(); }
  bool empty() const { return rowEnds.empty(); }

  // Valid until the rows change.
  std::span<const T> operator[](std::size_t row) const {
    assert(row < size());
    const std::size_t begin = row == 0 ? 0 : rowEnds[row - 1];
    return {values.data() + begin, rowEnds[row] - begin};
  }
  // The values of all rows.
  const Array& all() const { return values; }

  // For building a row in place: values are appended to open(), then close() ends the row.
  Array& open() { return values; }
  void close() {
    constexpr std::size_t limit = std::numeric_limits<End>::max();
    if (values.size() > limit) values.resize(limit);
    rowEnds.push_back(static_cast<End>(values.size()));
  }

  // Puts a value behind those of any row.
  void appendTo(std::size_t row, T value) {
    values.insert(values.begin() + static_cast<std::ptrdiff_t>(rowEnds[row]), value);
    for (; row < rowEnds.size(); ++row) ++rowEnds[row];
  }

  // Removes all rows and keeps the storage.
  void clear() {
    values.clear();
    rowEnds.clear();
  }

 private:
  Array values;
  Ends rowEnds{};
};

}  // namespace quorvane

#endif  // QUORVANE_BOARD_ROWS_H_

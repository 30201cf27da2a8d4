#ifndef QUORVANE_BOARD_TABLE_H_
#define QUORVANE_BOARD_TABLE_H_

#include <cstdint>

namespace quorvane {

// A fixed array that is indexed by squares, kinds and other signed numbers; nothing is tested.
template <typename T, std::int32_t size>
struct Table {
  T entries[size];

  constexpr T& operator[](std::int32_t index) { return entries[index]; }
  constexpr const T& operator[](std::int32_t index) const { return entries[index]; }
  constexpr T* begin() { return entries; }
  constexpr T* end() { return entries + size; }
  constexpr const T* begin() const { return entries; }
  constexpr const T* end() const { return entries + size; }
};

}  // namespace quorvane

#endif  // QUORVANE_BOARD_TABLE_H_

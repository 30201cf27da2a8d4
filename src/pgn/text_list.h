#ifndef QUORVANE_PGN_TEXT_LIST_H_
#define QUORVANE_PGN_TEXT_LIST_H_

#include <cassert>
#include <cstddef>
#include <cstdint>
#include <string_view>

namespace quorvane {

// An array of strings that stand one behind the other in a single text, with the place where each ends. A
// view: text and ends belong to the TextStore that made it.
class TextList {
 public:
  TextList() = default;

  std::size_t size() const { return count; }
  bool empty() const { return count == 0; }

  std::string_view operator[](std::size_t index) const {
    assert(index < count);
    const std::size_t begin = index == 0 ? 0 : endOf(index - 1);
    return {text + begin, endOf(index) - begin};
  }

 private:
  friend class TextStore;

  // Most texts are short enough for ends of two bytes.
  std::size_t endOf(std::size_t index) const {
    return longEnds == nullptr ? shortEnds[index] : longEnds[index];
  }

  const char* text = nullptr;
  const std::uint16_t* shortEnds = nullptr;
  const std::uint32_t* longEnds = nullptr;  // used if not null
  std::uint32_t count = 0;
};

}  // namespace quorvane

#endif  // QUORVANE_PGN_TEXT_LIST_H_

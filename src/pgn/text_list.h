#ifndef QUORVANE_PGN_TEXT_LIST_H_
#define QUORVANE_PGN_TEXT_LIST_H_

#include <cstdint>
#include <limits>
#include <string>
#include <string_view>
#include <vector>

namespace quorvane {

// A growable array of strings that are kept one behind the other in a single text: four bytes a string beside
// its characters, where strings of their own would take thirty-two. A list holds up to 4 GiB of text; what
// would stand behind that is cut off. A copy allocates no more than it needs.
class TextList {
 public:
  std::size_t size() const { return ends.size(); }
  bool empty() const { return ends.empty(); }

  // Valid until the list changes.
  std::string_view operator[](std::size_t index) const {
    const std::size_t begin = index == 0 ? 0 : ends[index - 1];
    return std::string_view(text).substr(begin, ends[index] - begin);
  }
  std::string_view back() const { return (*this)[size() - 1]; }

  void append(std::string_view string) {
    text += string;
    close();
  }

  // For building a string in place: characters are appended to open(), then close() ends the string.
  std::string& open() { return text; }
  void close() {
    constexpr std::size_t limit = std::numeric_limits<std::uint32_t>::max();
    if (text.size() > limit) text.resize(limit);
    ends.push_back(static_cast<std::uint32_t>(text.size()));
  }

  // Keeps the storage.
  void clear() {
    text.clear();
    ends.clear();
  }

 private:
  std::string text;
  std::vector<std::uint32_t> ends;
};

}  // namespace quorvane

#endif  // QUORVANE_PGN_TEXT_LIST_H_

#ifndef QUORVANE_PGN_TEXT_BUILDER_H_
#define QUORVANE_PGN_TEXT_BUILDER_H_

#include <cassert>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <string_view>
#include <vector>

namespace quorvane {

// Builds strings one behind the other: characters are added to the open string, close() ends it. Holds up to
// 4 GiB of text; what would stand behind that is cut off. Fit for use again and again: clear() keeps the
// storage.
class TextBuilder {
 public:
  // Room for so many characters behind the open string. Valid until the next call; extendTo says how far it
  // has been used.
  char* room(std::size_t characters) {
    if (text.size() - used < characters) text.resize(2 * (used + characters));
    return text.data() + used;
  }
  void extendTo(const char* end) {
    used = static_cast<std::size_t>(end - text.data());
    assert(used <= text.size());
  }

  void add(char character) {
    *room(1) = character;
    ++used;
  }

  void close() {
    constexpr std::size_t limit = std::numeric_limits<std::uint32_t>::max();
    if (used > limit) used = limit;
    ends.push_back(static_cast<std::uint32_t>(used));
  }
  void clear() {
    used = 0;
    ends.clear();
  }

  // The string that was closed last; valid until the next change.
  std::string_view back() const {
    assert(!ends.empty());
    const std::size_t begin = ends.size() == 1 ? 0 : ends[ends.size() - 2];
    return {text.data() + begin, ends.back() - begin};
  }
  // All closed strings, and where each ends.
  std::string_view closedText() const { return {text.data(), ends.empty() ? 0 : ends.back()}; }
  const std::vector<std::uint32_t>& closedEnds() const { return ends; }

 private:
  std::vector<char> text;  // longer than what is used
  std::size_t used = 0;
  std::vector<std::uint32_t> ends;
};

}  // namespace quorvane

#endif  // QUORVANE_PGN_TEXT_BUILDER_H_

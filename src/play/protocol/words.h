#ifndef QUORVANE_PLAY_PROTOCOL_WORDS_H_
#define QUORVANE_PLAY_PROTOCOL_WORDS_H_

#include <algorithm>
#include <charconv>
#include <cstdint>
#include <limits>
#include <optional>
#include <string_view>

namespace quorvane::play {

// The words of a line, one after the other.
class Words {
 public:
  explicit Words(std::string_view line) : left(line) {}

  // Empty at the end of the line.
  std::string_view next() {
    skipBlanks();
    const std::string_view word = left.substr(0, left.find_first_of(blanks));
    left.remove_prefix(word.size());
    return word;
  }
  std::string_view peek() const { return Words(*this).next(); }

  // All that is left, without blanks around it.
  std::string_view rest() {
    skipBlanks();
    return left.substr(0, left.find_last_not_of(blanks) + 1);
  }

 private:
  static constexpr std::string_view blanks = " \t\r\n\v\f";

  void skipBlanks() { left.remove_prefix(std::min(left.find_first_not_of(blanks), left.size())); }

  std::string_view left;
};

// A whole number, brought into the limits; nothing if the word is none.
inline std::optional<std::int64_t> numberOf(std::string_view word, std::int64_t least, std::int64_t most) {
  std::int64_t number = 0;
  const auto [end, error] = std::from_chars(word.data(), word.data() + word.size(), number);
  if (end != word.data() + word.size() || word.empty() || error == std::errc::invalid_argument) return {};
  if (error == std::errc::result_out_of_range) number = word.front() == '-' ? least : most;
  return std::clamp(number, least, most);
}

}  // namespace quorvane::play

#endif  // QUORVANE_PLAY_PROTOCOL_WORDS_H_

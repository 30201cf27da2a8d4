#include "play/options.h"

#include <algorithm>
#include <charconv>
#include <limits>

namespace quorvane::play {

bool Options::takeFlag(std::string_view option) {
  return std::erase(words, option) != 0;
}

// The words behind that at a place, which goes with them.
std::vector<std::string> Options::takeBehind(std::size_t place, std::size_t count) {
  if (words.size() - place - 1 < count)
    throw WrongUsage(words[place] + " needs " + (count == 1 ? "something" : "two words") + " behind it");
  const auto begin = words.begin() + static_cast<std::ptrdiff_t>(place);
  const auto end = begin + static_cast<std::ptrdiff_t>(count) + 1;
  std::vector<std::string> taken(begin + 1, end);
  words.erase(begin, end);
  return taken;
}

std::optional<std::string> Options::take(std::string_view option) {
  for (std::size_t i = 0; i < words.size(); ++i) {
    if (words[i] == option) return takeBehind(i, 1).front();
    if (!words[i].starts_with(std::string(option) + "=")) continue;
    std::string value = words[i].substr(option.size() + 1);
    words.erase(words.begin() + static_cast<std::ptrdiff_t>(i));
    return value;
  }
  return {};
}

std::optional<std::pair<std::string, std::string>> Options::takeTwo(std::string_view option) {
  const auto found = std::ranges::find(words, option);
  if (found == words.end()) return {};
  const std::vector<std::string> taken = takeBehind(static_cast<std::size_t>(found - words.begin()), 2);
  return std::pair(taken[0], taken[1]);
}

std::int64_t Options::takeNumber(std::string_view option, std::int64_t usual, std::int64_t least) {
  const std::optional<std::string> value = take(option);
  return value ? numberIn(option, *value, least) : usual;
}

std::int64_t Options::numberIn(std::string_view option, const std::string& value, std::int64_t least) {
  std::int64_t number = 0;
  const char* const behind = value.data() + value.size();
  const auto [end, error] = std::from_chars(value.data(), behind, number);
  if (error != std::errc{} || end != behind || number < least ||
      number > std::numeric_limits<std::int32_t>::max()) {
    throw WrongUsage(std::string(option) + " needs a whole number of at least " + std::to_string(least));
  }
  return number;
}

std::vector<std::string> Options::rest(std::size_t count) const {
  for (const std::string& word : words) {
    if (word.starts_with("-")) throw WrongUsage("there is no option '" + word + "'");
  }
  if (words.size() != count) throw WrongUsage("--help tells how it is used");
  return words;
}

}  // namespace quorvane::play

#ifndef QUORVANE_PLAY_OPTIONS_H_
#define QUORVANE_PLAY_OPTIONS_H_

#include <cstdint>
#include <optional>
#include <span>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace quorvane::play {

// The command line says what cannot be; a sentence.
class WrongUsage : public std::runtime_error {
  using std::runtime_error::runtime_error;
};

// The words behind a command, from which options are taken out, with what follows them. All throw WrongUsage.
class Options {
 public:
  explicit Options(std::span<const char* const> given) : words(given.begin(), given.end()) {}

  // Was the option there?
  bool takeFlag(std::string_view option);
  // What follows the option, "--option VALUE" or "--option=VALUE"; nothing if it is not there.
  std::optional<std::string> take(std::string_view option);
  // The two words that follow it.
  std::optional<std::pair<std::string, std::string>> takeTwo(std::string_view option);
  // A whole number of at least `least`; `usual` if the option is not there.
  std::int64_t takeNumber(std::string_view option, std::int64_t usual, std::int64_t least);
  static std::int64_t numberIn(std::string_view option, const std::string& value, std::int64_t least);

  // What is left: so many words, none of which looks like an option.
  std::vector<std::string> rest(std::size_t count) const;

 private:
  std::vector<std::string> takeBehind(std::size_t place, std::size_t count);

  std::vector<std::string> words;
};

}  // namespace quorvane::play

#endif  // QUORVANE_PLAY_OPTIONS_H_

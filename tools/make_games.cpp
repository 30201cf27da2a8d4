// Writes generated games as PGN on standard output.

#include <charconv>
#include <cstdint>
#include <iostream>
#include <string_view>
#include <vector>

#include "tools/game_generator.h"

namespace {

bool readNumber(std::string_view text, std::uint64_t& number) {
  const char* const end = text.data() + text.size();
  const auto [stop, error] = std::from_chars(text.data(), end, number);
  return error == std::errc() && stop == end;
}

}  // namespace

int main(int argc, char** argv) {
  std::vector<std::string_view> arguments(argv + 1, argv + argc);
  const bool endings = !arguments.empty() && arguments.back() == "--endings";
  if (endings) arguments.pop_back();
  std::uint64_t numbers[] = {0, 1};  // count and seed
  bool understood = arguments.size() == 1 || arguments.size() == 2;
  for (std::size_t index = 0; understood && index < arguments.size(); ++index) {
    understood = readNumber(arguments[index], numbers[index]);
  }
  if (!understood) {
    std::cerr << "usage: make_games COUNT [SEED] [--endings]\n";
    return 2;
  }

  quorvane::GameGenerator generator(numbers[1]);
  for (std::uint64_t game = 0; game < numbers[0]; ++game) {
    std::cout << (endings ? generator.nextEnding() : generator.nextGame());
  }
  return std::cout.flush() ? 0 : 1;
}

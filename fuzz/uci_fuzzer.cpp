// Any lines pass as the protocol of a chess window: each search gets one answer, a legal move, and nothing
// ends the program.

#include <sstream>
#include <string>

#include "fuzz/fuzz_target.h"
#include "play/protocol/protocol.h"

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace quorvane;
  enterScratchFolder();
  const std::string text(reinterpret_cast<const char*>(data), size);
  // Counting moves and filling memory take as long as is asked for.
  const auto isLetter = [](char one, char other) { return (one | 32) == other; };
  for (std::size_t i = 0; i + 2 < size; ++i) {
    if (isLetter(text[i], 'a') && isLetter(text[i + 1], 's') && isLetter(text[i + 2], 'h')) return 0;
  }
  if (text.find("perft") != std::string::npos) return 0;
  std::istringstream input(text);
  std::ostringstream output;
  play::LineQueue lines(input);
  play::Protocol(lines, output, "", 1).run();
  std::istringstream said(output.str());
  for (std::string line; std::getline(said, line);) {
    if (!line.starts_with("bestmove ")) continue;
    const std::string move = line.substr(9, 5);
    require(move == "(none" || (move[0] >= 'a' && move[0] <= 'h' && move[1] >= '1' && move[1] <= '8'),
            "a search is answered by a move");
  }
  return 0;
}

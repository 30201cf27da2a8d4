#include "pgn/pgn_scanner.h"

#include <algorithm>

namespace quorvane {

namespace {

constexpr std::size_t blockSize = 1 << 16;

}  // namespace

PgnScanner::PgnScanner(std::istream& input)
    : file(input), block(blockSize), next(block.data()), blockEnd(block.data()) {}

bool PgnScanner::refill() {
  if (next != blockEnd) return true;
  file.read(block.data(), static_cast<std::streamsize>(block.size()));
  next = block.data();
  blockEnd = next + file.gcount();
  return next != blockEnd;
}

void PgnScanner::readWord(TextBuilder& text) {
  if (!skipWhiteSpace()) return;
  do {
    // Words are short: a call for each part of one would take longer than its characters.
    char* end = text.room(static_cast<std::size_t>(blockEnd - next));
    const char* from = next;
    const char* const last = blockEnd;
    while (from != last && !isWhiteSpace(*from)) *end++ = *from++;
    next = from;
    text.extendTo(end);
  } while (next == blockEnd && refill());
}

void PgnScanner::readUpTo(char end, TextBuilder& text) {
  while (refill()) {
    const char* const found = std::find(next, blockEnd, end);
    text.extendTo(std::copy(next, found, text.room(static_cast<std::size_t>(found - next))));
    next = found;
    if (found == blockEnd) continue;
    ++next;
    return;
  }
}

}  // namespace quorvane

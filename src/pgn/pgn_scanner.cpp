#include "pgn/pgn_scanner.h"

#include <algorithm>

namespace quorvane {

namespace {

constexpr std::size_t blockSize = 1 << 16;

constexpr bool isWhiteSpace(char character) {
  return character == ' ' || (character >= '\t' && character <= '\r');
}

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

bool PgnScanner::skipWhiteSpace() {
  while (refill()) {
    next = std::find_if_not(next, blockEnd, isWhiteSpace);
    if (next != blockEnd) return true;
  }
  return false;
}

char PgnScanner::readCharacter() {
  if (skipWhiteSpace()) {
    character = *next++;
  } else {
    reachedEnd = true;
  }
  return character;
}

void PgnScanner::readWord(std::string& text) {
  if (!skipWhiteSpace()) return;
  do {
    const char* const end = std::find_if(next, blockEnd, isWhiteSpace);
    text.append(next, end);
    next = end;
  } while (next == blockEnd && refill());
}

void PgnScanner::readUpTo(char end, std::string& text) {
  while (refill()) {
    const char* const found = std::find(next, blockEnd, end);
    text.append(next, found);
    next = found;
    if (found == blockEnd) continue;
    ++next;
    return;
  }
}

}  // namespace quorvane

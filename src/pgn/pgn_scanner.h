#ifndef QUORVANE_PGN_PGN_SCANNER_H_
#define QUORVANE_PGN_PGN_SCANNER_H_

#include <istream>
#include <vector>

#include "pgn/text_builder.h"

namespace quorvane {

// The three ways in which a game file is read. White space is blank, tab, line feed, carriage return,
// vertical tab and form feed; every other byte is a character, whatever its value.
class PgnScanner {
 public:
  // Reads from `input`, which must outlive the scanner, in blocks.
  explicit PgnScanner(std::istream& input);

  // Skips white space and gives the next character. At the end of the file it gives the last one again and
  // sets ended().
  char readCharacter() {
    if (skipWhiteSpace()) {
      character = *next++;
    } else {
      reachedEnd = true;
    }
    return character;
  }

  // Skips white space, then adds the characters up to the next white space, which stays in the file.
  // Adds nothing at the end of the file.
  void readWord(TextBuilder& text);

  // Adds everything up to the first `end`, line ends included, and consumes `end`. The end of the file
  // ends the text as well.
  void readUpTo(char end, TextBuilder& text);

  // No character was left for the last readCharacter.
  bool ended() const { return reachedEnd; }

 private:
  // Fills the block if it is used up; false at the end of the file.
  bool refill();
  // Skips white space; false at the end of the file.
  bool skipWhiteSpace() {
    do {
      for (; next != blockEnd; ++next) {
        if (!isWhiteSpace(*next)) return true;
      }
    } while (refill());
    return false;
  }

  static constexpr bool isWhiteSpace(char character) {
    return character == ' ' || (character >= '\t' && character <= '\r');
  }

  std::istream& file;
  std::vector<char> block;
  const char* next;  // what is left of the block
  const char* blockEnd;
  char character = '\0';
  bool reachedEnd = false;
};

}  // namespace quorvane

#endif  // QUORVANE_PGN_PGN_SCANNER_H_

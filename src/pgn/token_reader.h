#ifndef QUORVANE_PGN_TOKEN_READER_H_
#define QUORVANE_PGN_TOKEN_READER_H_

#include <istream>

#include "pgn/pgn_scanner.h"
#include "pgn/text_builder.h"

namespace quorvane {

// Cuts a file of games into tags and tokens. What next comes is a tag or a token, or neither at the end of
// the file.
class TokenReader {
 public:
  // Reads from `input`, which must outlive the reader.
  explicit TokenReader(std::istream& input) : scanner(input), first(scanner.readCharacter()) {}

  bool ended() const { return scanner.ended(); }
  bool atTag() const { return first == '[' && !ended(); }

  // Adds the tag that comes next, without its brackets, as a string.
  void readTag(TextBuilder& tags);
  // Adds all tokens up to the next tag, as a string each.
  void readTokens(TextBuilder& tokens);

 private:
  PgnScanner scanner;
  char first;  // of what comes next
};

}  // namespace quorvane

#endif  // QUORVANE_PGN_TOKEN_READER_H_

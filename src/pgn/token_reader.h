#ifndef QUORVANE_PGN_TOKEN_READER_H_
#define QUORVANE_PGN_TOKEN_READER_H_

#include <cstdint>
#include <istream>
#include <vector>

#include "pgn/pgn_scanner.h"
#include "pgn/text_builder.h"

namespace quorvane {

// Where a token or a tag stands in its file: from its first byte to behind its last one.
struct TokenPlace {
  std::uint64_t begin;
  std::uint64_t end;
};

// Cuts a file of games into tags and tokens. What next comes is a tag or a token, or neither at the end of
// the file.
class TokenReader {
 public:
  // Reads from `input`, which must outlive the reader.
  explicit TokenReader(std::istream& input) : scanner(input), first(scanner.readCharacter()) {}

  bool ended() const { return scanner.ended(); }
  bool atTag() const { return first == '[' && !ended(); }

  // Adds the tag that comes next, without its brackets, as a string. Gives its place, brackets included.
  TokenPlace readTag(TextBuilder& tags);
  // Adds all tokens up to the next tag, as a string each; to `places` where they stand.
  void readTokens(TextBuilder& tokens);
  void readTokens(TextBuilder& tokens, std::vector<TokenPlace>& places);

 private:
  PgnScanner scanner;
  char first;  // of what comes next
};

}  // namespace quorvane

#endif  // QUORVANE_PGN_TOKEN_READER_H_

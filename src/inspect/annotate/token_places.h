#ifndef QUORVANE_INSPECT_ANNOTATE_TOKEN_PLACES_H_
#define QUORVANE_INSPECT_ANNOTATE_TOKEN_PLACES_H_

#include <cstddef>
#include <string_view>

#include "pgn/text_list.h"

namespace quorvane::inspect {

// From the first character of a token to behind its last one.
struct TokenPlace {
  std::size_t begin;
  std::size_t end;
};

// Finds, in the text that games were read from, where their tokens stand. Every tag and token has to be gone through, in
// the order of reading.
class TokenPlaces {
 public:
  // The text must outlive this.
  explicit TokenPlaces(std::string_view source) : text(source) {}

  // Both throw a std::logic_error if the next thing in the text is something else.
  void passTags(const TextList& tags);
  TokenPlace next(std::string_view token);

 private:
  bool ended() const { return position == text.size(); }
  // Goes behind these characters. White space between them that is not among them is passed over.
  void pass(std::string_view characters);

  std::string_view text;
  std::size_t position = 0;
};

}  // namespace quorvane::inspect

#endif  // QUORVANE_INSPECT_ANNOTATE_TOKEN_PLACES_H_

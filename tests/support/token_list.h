#ifndef QUORVANE_TESTS_SUPPORT_TOKEN_LIST_H_
#define QUORVANE_TESTS_SUPPORT_TOKEN_LIST_H_

#include <algorithm>
#include <sstream>
#include <string>

#include "pgn/text_store.h"

namespace quorvane {

// The tokens between the blanks of a text; valid to the end of the process.
inline TextList tokensOf(const std::string& text) {
  static TextStore store;
  TextBuilder tokens;
  std::istringstream words(text);
  for (std::string token; words >> token; tokens.close())
    std::ranges::for_each(token, [&](char c) { tokens.add(c); });
  return store.keep(tokens);
}

}  // namespace quorvane

#endif  // QUORVANE_TESTS_SUPPORT_TOKEN_LIST_H_

#ifndef QUORVANE_INSPECT_TEXT_OUTPUT_H_
#define QUORVANE_INSPECT_TEXT_OUTPUT_H_

#include <string>

#include "inspect/explanation.h"
#include "inspect/summary.h"
#include "inspect/validation.h"

namespace quorvane {

// What the commands print for people. Patterns: at most `top`.
std::string showText(const std::vector<ListSummary>& lists, std::size_t top);
// At most `top` patterns of each piece.
std::string explainText(const Explanation& explanation, std::size_t top);
std::string validateText(const Validation& validation);

}  // namespace quorvane

#endif  // QUORVANE_INSPECT_TEXT_OUTPUT_H_

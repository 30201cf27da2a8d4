#ifndef QUORVANE_INSPECT_JSON_OUTPUT_H_
#define QUORVANE_INSPECT_JSON_OUTPUT_H_

#include <nlohmann/json.hpp>
#include <string>

#include "inspect/explanation.h"
#include "inspect/summary.h"
#include "inspect/validation.h"

namespace quorvane {

// The shapes of docs/inspect.md.
using Json = nlohmann::ordered_json;

Json showJson(const std::string& networkName, const std::vector<ListSummary>& lists, std::size_t top);
// At most `top` patterns of each piece.
Json explainJson(const std::string& networkName, const Explanation& explanation, std::size_t top);
Json validateJson(const std::string& networkName, const Validation& validation);

// One list without its patterns.
Json listJson(const ListSummary& list);

// The shortest decimal number that reads back as the same 32-bit float.
double shortest(float number);

// Text of the JSON, with a line end, over several lines or on one. What is no UTF-8 in names of files is
// replaced.
std::string textOf(const Json& json, bool indented = true);

}  // namespace quorvane

#endif  // QUORVANE_INSPECT_JSON_OUTPUT_H_

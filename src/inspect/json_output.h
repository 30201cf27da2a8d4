#ifndef QUORVANE_INSPECT_JSON_OUTPUT_H_
#define QUORVANE_INSPECT_JSON_OUTPUT_H_

#include <nlohmann/json.hpp>
#include <string>

#include "inspect/explain/explanation.h"
#include "inspect/games/game_report.h"
#include "inspect/measure/calibration.h"
#include "inspect/measure/comparison.h"
#include "inspect/measure/judgement.h"
#include "inspect/measure/validation.h"
#include "inspect/patterns/summary.h"
#include "inspect/position/position.h"

namespace quorvane::inspect {

// The shapes of docs/inspect.md.
using Json = nlohmann::ordered_json;

Json showJson(const std::string& networkName, const std::vector<ListSummary>& lists, std::size_t top);
// At most `top` patterns of each piece. `calibration` may be null.
Json explainJson(const std::string& networkName, const Origin& origin, const Explanation& explanation,
                 const Calibration* calibration, std::size_t top);
// The value of a position and of its pieces, without the patterns.
Json valueJson(const std::string& fen, const Explanation& explanation, const Calibration* calibration);
Json validateJson(const std::string& networkName, const Validation& validation, const Judgement& judgement);
Json compareJson(const Contender& first, const Contender& second, const Comparison& comparison);
Json gamesJson(const std::vector<FileReport>& files);

Json bandJson(const Band& band);

// One list without its patterns.
Json listJson(const ListSummary& list);

// The shortest decimal number that reads back as the same 32-bit float.
double shortest(float number);
// The same for a number that is one; any other stays as it is.
double shortest(double number);

// Text of the JSON, with a line end, over several lines or on one. What is no UTF-8 in names of files is
// replaced.
std::string textOf(const Json& json, bool indented = true);

}  // namespace quorvane::inspect

#endif  // QUORVANE_INSPECT_JSON_OUTPUT_H_

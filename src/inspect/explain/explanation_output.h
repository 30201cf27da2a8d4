#ifndef QUORVANE_INSPECT_EXPLAIN_EXPLANATION_OUTPUT_H_
#define QUORVANE_INSPECT_EXPLAIN_EXPLANATION_OUTPUT_H_

#include <optional>
#include <string>

#include "inspect/common/json.h"
#include "inspect/explain/explanation.h"
#include "inspect/position/position.h"

namespace quorvane::inspect {

// Without `top`, the three patterns that matter most of the three pieces that stand out; with it, so many
// patterns of every piece. `howToCalibrate` is the command that makes a calibration.
std::string explainText(const Origin& origin, const Explanation& explanation, std::optional<std::size_t> top,
                        const std::string& howToCalibrate);

// At most `top` patterns of each piece.
Json explainJson(const std::string& networkName, const Origin& origin, const Explanation& explanation,
                 std::size_t top);

// The value of a position and of its pieces, without the patterns.
Json valueJson(const std::string& fen, const Explanation& explanation);

// How many patterns are told that decide a position.
inline constexpr std::size_t decidingPatternsTold = 5;

}  // namespace quorvane::inspect

#endif  // QUORVANE_INSPECT_EXPLAIN_EXPLANATION_OUTPUT_H_

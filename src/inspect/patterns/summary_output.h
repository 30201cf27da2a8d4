#ifndef QUORVANE_INSPECT_PATTERNS_SUMMARY_OUTPUT_H_
#define QUORVANE_INSPECT_PATTERNS_SUMMARY_OUTPUT_H_

#include <string>
#include <vector>

#include "inspect/common/json.h"
#include "inspect/patterns/summary.h"

namespace quorvane::inspect {

// What show prints; of the strongest patterns at most `top`.
std::string showText(const std::vector<ListSummary>& lists, std::size_t top);
Json showJson(const std::string& networkName, const std::vector<ListSummary>& lists, std::size_t top);

// One list without its patterns.
Json listJson(const ListSummary& list);

// A pattern's weight, and the names of its bits.
Json patternJson(PositionType type, std::int32_t kind, ConfigurationWord mask, double weight);

}  // namespace quorvane::inspect

#endif  // QUORVANE_INSPECT_PATTERNS_SUMMARY_OUTPUT_H_

#ifndef QUORVANE_INSPECT_HTML_REPORT_H_
#define QUORVANE_INSPECT_HTML_REPORT_H_

#include <optional>
#include <string>

#include "inspect/json_output.h"

namespace quorvane {

// What the page draws: names, every list with its patterns and the values of squares, the validation if there
// is one.
Json reportJson(const std::string& networkName, const NetworkTable& table,
                const std::optional<Validation>& validation);

// The page, which needs nothing but itself.
std::string reportPage(const Json& data);

// Writes the file whole, or throws a Fault and leaves what was there.
void writeReport(const std::string& fileName, const std::string& page);

}  // namespace quorvane

#endif  // QUORVANE_INSPECT_HTML_REPORT_H_

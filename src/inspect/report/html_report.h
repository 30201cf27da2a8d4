#ifndef QUORVANE_INSPECT_REPORT_HTML_REPORT_H_
#define QUORVANE_INSPECT_REPORT_HTML_REPORT_H_

#include <string>

#include "inspect/json_output.h"

namespace quorvane::inspect {

// The page, which needs nothing but itself; `data` as pageData gives them.
std::string reportPage(const Json& data);

// Makes the page the content of the file, or throws a Fault and leaves what was there.
void writeReport(const std::string& fileName, const std::string& page);

}  // namespace quorvane::inspect

#endif  // QUORVANE_INSPECT_REPORT_HTML_REPORT_H_

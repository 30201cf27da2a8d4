#ifndef QUORVANE_INSPECT_REPORT_PAGE_H_
#define QUORVANE_INSPECT_REPORT_PAGE_H_

#include <string>
#include <string_view>

#include "inspect/common/json.h"

namespace quorvane::inspect {

// Every page has this near its beginning, and is known by it.
inline constexpr std::string_view pageMarker = R"(<meta name="generator" content="quorvane-inspect">)";

// The page, which needs nothing but itself; `data` as pageData gives them.
std::string reportPage(const Json& data);

}  // namespace quorvane::inspect

#endif  // QUORVANE_INSPECT_REPORT_PAGE_H_

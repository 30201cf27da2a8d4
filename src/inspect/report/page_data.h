#ifndef QUORVANE_INSPECT_REPORT_PAGE_DATA_H_
#define QUORVANE_INSPECT_REPORT_PAGE_DATA_H_

#include <optional>
#include <string>
#include <vector>

#include "inspect/common/json.h"
#include "inspect/measure/calibration.h"
#include "inspect/report/game_trails.h"

namespace quorvane::inspect {

// What a page shows of one network.
struct PageInput {
  std::string networkName;
  std::vector<std::string> learnedFrom;  // as the caller names it; a network file does not say
  std::optional<Validation> validation;
  std::optional<Calibration> calibration;  // not without one where there is a validation
  std::vector<GameTrail> games;
};

// The data of the page, in the shape of docs/inspect.md; `table` is the network itself.
Json pageData(const PageInput& input, const NetworkTable& table);

}  // namespace quorvane::inspect

#endif  // QUORVANE_INSPECT_REPORT_PAGE_DATA_H_

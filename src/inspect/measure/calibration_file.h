#ifndef QUORVANE_INSPECT_MEASURE_CALIBRATION_FILE_H_
#define QUORVANE_INSPECT_MEASURE_CALIBRATION_FILE_H_

#include <string>
#include <string_view>

#include "inspect/common/json.h"
#include "inspect/measure/calibration.h"

namespace quorvane::inspect {

// Stands in the first line of every calibration file.
inline constexpr std::string_view calibrationMarker = "quorvane-inspect calibration";

// The file that is looked for where none is named: NETWORK.calibration.json.
std::string defaultCalibrationFile(const std::string& network);

Json bandJson(const Band& band);
Json calibrationJson(const Calibration& calibration);

// Throws a Fault if the file cannot be read, is no calibration, or is one of another network than
// `fingerprint` says.
Calibration readCalibration(const std::string& name, const std::string& fingerprint);

}  // namespace quorvane::inspect

#endif  // QUORVANE_INSPECT_MEASURE_CALIBRATION_FILE_H_

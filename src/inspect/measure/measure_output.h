#ifndef QUORVANE_INSPECT_MEASURE_MEASURE_OUTPUT_H_
#define QUORVANE_INSPECT_MEASURE_MEASURE_OUTPUT_H_

#include <string>

#include "inspect/common/json.h"
#include "inspect/measure/comparison.h"

namespace quorvane::inspect {

// What validate prints; `curvesFrom` says where the curves come from.
std::string validateText(const Validation& validation, const Judgement& judgement,
                         const std::string& curvesFrom);
Json validateJson(const std::string& networkName, const Validation& validation, const Judgement& judgement);

// What compare prints.
std::string compareText(const Contender& first, const Contender& second, const Comparison& comparison);
Json compareJson(const Contender& first, const Contender& second, const Comparison& comparison);

// Means over so many samples; `right` in percent of those that were decided. Null where there are none.
Json scoreJson(const Score& score, std::size_t samples, std::size_t decided);

// "12.3", or "-" where there is nothing to divide by.
std::string percentOf(double part, std::size_t whole);

}  // namespace quorvane::inspect

#endif  // QUORVANE_INSPECT_MEASURE_MEASURE_OUTPUT_H_

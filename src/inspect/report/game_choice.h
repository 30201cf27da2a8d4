#ifndef QUORVANE_INSPECT_REPORT_GAME_CHOICE_H_
#define QUORVANE_INSPECT_REPORT_GAME_CHOICE_H_

#include <cstdint>
#include <vector>

#include "inspect/measure/calibration.h"
#include "inspect/measure/validation.h"

namespace quorvane::inspect {

// Numbers, as in Prediction::game, of at most `count` games that are worth looking at: half of them those
// whose result differs most from the expected scores of their positions, the worst first, then as many from
// all the others, at even distances from there to the best. Only games that gave samples of types with
// patterns.
std::vector<std::uint32_t> chooseGames(const Validation& validation, const Calibration& calibration,
                                       std::size_t count);

}  // namespace quorvane::inspect

#endif  // QUORVANE_INSPECT_REPORT_GAME_CHOICE_H_

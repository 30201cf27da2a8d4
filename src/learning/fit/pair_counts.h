#ifndef QUORVANE_LEARNING_FIT_PAIR_COUNTS_H_
#define QUORVANE_LEARNING_FIT_PAIR_COUNTS_H_

#include <cstdint>
#include <span>
#include <vector>

#include "configurations/piece_configuration.h"
#include "learning/fit/sample_rows.h"
#include "network/network_table.h"

namespace quorvane {

// For every node of the lists, kind after kind, what the squares of its net counts hold beside its single
// firings: summed over the samples, and over all ordered pairs of different pieces on which it fires, 1 for
// two pieces of one side and -1 for one of each. Whole numbers, so the doubles are exact. Of each row of
// samples there are so many as `repetitions` tells; `configurations` are by place.
std::vector<double> pairCounts(const SampleRows& rows, std::span<const std::uint32_t> repetitions,
                               const std::vector<PieceConfiguration>& configurations,
                               const NetworkRow& lists);

}  // namespace quorvane

#endif  // QUORVANE_LEARNING_FIT_PAIR_COUNTS_H_

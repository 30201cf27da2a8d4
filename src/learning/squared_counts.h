#ifndef QUORVANE_LEARNING_SQUARED_COUNTS_H_
#define QUORVANE_LEARNING_SQUARED_COUNTS_H_

#include <vector>

#include "learning/sample_set.h"
#include "network/network_table.h"

namespace quorvane {

// For every node of the row, kind after kind, the sum over the samples of the square of its net count:
// firings on own pieces minus firings on opposing ones. Whole numbers, so the doubles are exact.
std::vector<double> squaredNetCounts(const SampleSet& set, const NetworkRow& row);

}  // namespace quorvane

#endif  // QUORVANE_LEARNING_SQUARED_COUNTS_H_

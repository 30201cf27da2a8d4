#ifndef QUORVANE_INSPECT_PATTERNS_SUMMARY_H_
#define QUORVANE_INSPECT_PATTERNS_SUMMARY_H_

#include <cstdint>
#include <optional>
#include <vector>

#include "network/network_table.h"

namespace quorvane::inspect {

// Which lists of a network are meant; what is left open means all.
struct Selection {
  std::optional<PositionType> type;
  std::optional<std::int32_t> kind;
};

// One list that holds patterns. Weights are in the unit of targets.
struct ListSummary {
  PositionType type;
  std::int32_t kind;
  const NodeList* list;
  std::vector<std::size_t> countBySize;  // patterns of 1, 2, ... bits; at least three entries
  double lowest;
  double highest;
  double mean;
  double deviation;  // the standard deviation: how far the weights spread around their mean
};

// One pattern and where it stands.
struct PlacedPattern {
  PositionType type;
  std::int32_t kind;
  const PatternNode* node;
};

// The selected lists that are not empty, by type, then kind. Refers to the table.
std::vector<ListSummary> summarise(const NetworkTable& table, const Selection& selection);

// At most `count` patterns of the lists: those of the greatest absolute weight, the greatest first.
std::vector<PlacedPattern> strongestPatterns(const std::vector<ListSummary>& lists, std::size_t count);

// How many patterns a row holds.
std::size_t patternCount(const NetworkRow& row);

}  // namespace quorvane::inspect

#endif  // QUORVANE_INSPECT_PATTERNS_SUMMARY_H_

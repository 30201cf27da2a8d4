#include "inspect/patterns/summary.h"

#include <algorithm>
#include <bit>
#include <cmath>

namespace quorvane::inspect {

namespace {

ListSummary summaryOf(PositionType type, std::int32_t kind, const NodeList& list) {
  ListSummary summary{type, kind, &list, std::vector<std::size_t>(3), 0.0, 0.0, 0.0, 0.0};
  const auto [lowest, highest] =
      std::ranges::minmax_element(list, {}, [](const PatternNode& node) { return node.weight; });
  summary.lowest = static_cast<double>(lowest->weight);
  summary.highest = static_cast<double>(highest->weight);
  const auto count = static_cast<double>(list.size());
  for (const PatternNode& node : list) {
    const auto size = static_cast<std::size_t>(std::popcount(node.mask));
    if (size > summary.countBySize.size()) summary.countBySize.resize(size);
    ++summary.countBySize[size - 1];
    summary.mean += static_cast<double>(node.weight) / count;
  }
  double squares = 0.0;
  for (const PatternNode& node : list) {
    const double difference = static_cast<double>(node.weight) - summary.mean;
    squares += difference * difference;
  }
  summary.deviation = std::sqrt(squares / count);
  return summary;
}

}  // namespace

std::vector<ListSummary> summarise(const NetworkTable& table, const Selection& selection) {
  std::vector<ListSummary> summaries;
  for (PositionType type = 0; type < positionTypeCount; ++type) {
    if (type != selection.type.value_or(type)) continue;
    for (std::int32_t kind = 0; kind < pieceKindCount; ++kind) {
      if (kind != selection.kind.value_or(kind) || table[type][kind].empty()) continue;
      summaries.push_back(summaryOf(type, kind, table[type][kind]));
    }
  }
  return summaries;
}

std::vector<PlacedPattern> strongestPatterns(const std::vector<ListSummary>& lists, std::size_t count) {
  std::vector<PlacedPattern> patterns;
  for (const ListSummary& summary : lists) {
    for (const PatternNode& node : *summary.list) patterns.push_back({summary.type, summary.kind, &node});
  }
  std::ranges::stable_sort(patterns, std::greater(),
                           [](const PlacedPattern& pattern) { return std::abs(pattern.node->weight); });
  if (patterns.size() > count) patterns.resize(count);
  return patterns;
}

std::size_t patternCount(const NetworkRow& row) {
  std::size_t count = 0;
  for (const NodeList& list : row) count += list.size();
  return count;
}

}  // namespace quorvane::inspect

#include "inspect/patterns/summary_output.h"

#include "configurations/bit_names.h"
#include "inspect/common/text_columns.h"

namespace quorvane::inspect {

namespace {

std::string listsText(const std::vector<ListSummary>& lists) {
  std::size_t sizes = 0;
  for (const ListSummary& list : lists) sizes = std::max(sizes, list.countBySize.size());
  TextColumns columns("rlr" + std::string(sizes + 4, 'r'));
  std::vector<std::string> cells{"type", "kind", "patterns"};
  for (std::size_t size = 1; size <= sizes; ++size) cells.push_back(counted(size, "bit"));
  for (const char* weights : {"lowest", "highest", "mean", "deviation"}) cells.emplace_back(weights);
  columns.add(cells);
  for (const ListSummary& list : lists) {
    cells = {std::to_string(list.type), kindName(list.kind), std::to_string(list.list->size())};
    for (std::size_t size = 0; size < sizes; ++size)
      cells.push_back(std::to_string(size < list.countBySize.size() ? list.countBySize[size] : 0));
    for (const double weight : {list.lowest, list.highest, list.mean, list.deviation})
      cells.push_back(fixed(weight, 2));
    columns.add(cells);
  }
  return columns.str();
}

}  // namespace

std::string showText(const std::vector<ListSummary>& lists, std::size_t top) {
  if (lists.empty()) return "No patterns.\n";
  std::string text = "Patterns and their weights\n\n" + listsText(lists);
  if (top == 0) return text;
  text += "\nStrongest patterns\n\n";
  TextColumns columns("rlr");
  columns.add({"type", "pattern", "weight"});
  for (const auto& [type, kind, node] : strongestPatterns(lists, top)) {
    columns.add({std::to_string(type), kindName(kind) + (": " + patternName(type, kind, node->mask)),
                 fixed(static_cast<double>(node->weight), 2)});
  }
  return text + columns.str();
}

Json showJson(const std::string& networkName, const std::vector<ListSummary>& lists, std::size_t top) {
  const auto placedJson = [](const PlacedPattern& placed) {
    const auto& [type, kind, node] = placed;
    return joined({{"type", type}, {"kind", kindName(kind)}},
                  patternJson(type, kind, node->mask, static_cast<double>(node->weight)));
  };
  return {{"network", networkName},
          {"lists", arrayOf(lists, listJson)},
          {"strongest", arrayOf(strongestPatterns(lists, top), placedJson)}};
}

Json listJson(const ListSummary& list) {
  return {{"type", list.type},          {"kind", kindName(list.kind)}, {"patterns", list.list->size()},
          {"bySize", list.countBySize}, {"lowest", list.lowest},       {"highest", list.highest},
          {"mean", list.mean},          {"deviation", list.deviation}};
}

Json patternJson(PositionType type, std::int32_t kind, ConfigurationWord mask, double weight) {
  return {{"weight", shortest(weight)},
          {"mask", mask},
          {"bits", bitNames(type, kind, mask)},
          {"identifiers", bitIdentifiers(type, kind, mask)}};
}

}  // namespace quorvane::inspect

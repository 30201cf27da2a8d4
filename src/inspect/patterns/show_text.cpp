#include "configurations/bit_names.h"
#include "inspect/common/text_columns.h"
#include "inspect/text_output.h"

namespace quorvane::inspect {

namespace {

// "1 bit", "2 bits".
std::string sizeName(std::size_t bits) {
  return std::to_string(bits) + (bits == 1 ? " bit" : " bits");
}

std::string listsText(const std::vector<ListSummary>& lists) {
  std::size_t sizes = 0;
  for (const ListSummary& list : lists) sizes = std::max(sizes, list.countBySize.size());
  TextColumns columns("rlr" + std::string(sizes + 4, 'r'));
  std::vector<std::string> cells{"type", "kind", "patterns"};
  for (std::size_t size = 1; size <= sizes; ++size) cells.push_back(sizeName(size));
  for (const char* weights : {"lowest", "highest", "mean", "deviation"}) cells.emplace_back(weights);
  columns.add(cells);
  for (const ListSummary& list : lists) {
    cells = {std::to_string(list.type), kindName(list.kind), std::to_string(list.list->size())};
    for (std::size_t size = 0; size < sizes; ++size) {
      cells.push_back(std::to_string(size < list.countBySize.size() ? list.countBySize[size] : 0));
    }
    for (const double weight : {list.lowest, list.highest, list.mean, list.deviation}) {
      cells.push_back(fixed(weight, 2));
    }
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
  for (const PlacedPattern& pattern : strongestPatterns(lists, top)) {
    columns.add({std::to_string(pattern.type),
                 std::string(kindName(pattern.kind)) + ": " +
                     patternName(pattern.type, pattern.kind, pattern.node->mask),
                 fixed(static_cast<double>(pattern.node->weight), 2)});
  }
  return text + columns.str();
}

}  // namespace quorvane::inspect

#include "configurations/bit_names.h"
#include "inspect/common/text_columns.h"
#include "inspect/text_output.h"

namespace quorvane::inspect {

namespace {

std::string intervalText(const PairedDifference& difference, int digits) {
  return withSign(difference.mean, digits) + " (" + withSign(difference.low, digits) + " to " +
         withSign(difference.high, digits) + ")";
}

// One table: of f(w), log loss or right %, A and B by type.
template <typename CellsOf>
std::string tableText(const Comparison& comparison, const std::vector<std::string>& head, CellsOf cellsOf) {
  TextColumns columns("rrrrr");
  columns.add(head);
  const auto add = [&](const std::string& name, const ComparedType& compared) {
    std::vector<std::string> cells{name, std::to_string(compared.samples)};
    for (const std::string& cell : cellsOf(compared)) cells.push_back(cell);
    columns.add(cells);
  };
  for (PositionType type = 0; type < positionTypeCount; ++type) {
    if (comparison.byType[type].samples != 0) add(std::to_string(type), comparison.byType[type]);
  }
  if (comparison.all.samples != 0) add("all", comparison.all);
  return columns.str() + "\n";
}

}  // namespace

std::string compareText(const Contender& first, const Contender& second, const Comparison& comparison) {
  const std::string difference = "A - B (95 % interval)";
  using Cells = std::vector<std::string>;
  return wrapped(verdict(first, second, comparison), 0) + "\n" + wrapped("A: " + first.name, 4) +
         wrapped("B: " + second.name, 4) + tallyText(first.validation.tally) + "\n" +
         wrapped(
             "Above 0, B is better; an interval that holds 0 tells nothing. The intervals come from drawing "
             "whole "
             "games anew, 1000 times. Each network has curves of its own, fitted on these games.",
             0) +
         "\n" + "f(w)\n" +
         tableText(comparison, {"type", "samples", "A", "B", difference},
                   [](const ComparedType& compared) {
                     const auto count = static_cast<double>(compared.samples);
                     return Cells{fixed(compared.first.squares / count, 1),
                                  fixed(compared.second.squares / count, 1), intervalText(compared.f, 1)};
                   }) +
         "Log loss\n" +
         tableText(comparison, {"type", "samples", "A", "B", difference},
                   [](const ComparedType& compared) {
                     const auto count = static_cast<double>(compared.samples);
                     return Cells{fixed(compared.first.logLoss / count, 4),
                                  fixed(compared.second.logLoss / count, 4),
                                  intervalText(compared.logLoss, 4)};
                   }) +
         "Right about the winner, % of the positions of games that were not drawn\n" +
         tableText(comparison, {"type", "samples", "A", "B"}, [](const ComparedType& compared) {
           const auto percent = [&](const Score& score) {
             return compared.decided == 0
                        ? "-"
                        : fixed(100.0 * score.right / static_cast<double>(compared.decided), 1);
           };
           return Cells{percent(compared.first), percent(compared.second)};
         });
}

}  // namespace quorvane::inspect

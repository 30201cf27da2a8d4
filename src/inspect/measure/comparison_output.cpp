#include "inspect/common/text_columns.h"
#include "inspect/measure/measure_output.h"

namespace quorvane::inspect {

namespace {

using Cells = std::vector<std::string>;

// One table: what cellsOf(compared) gives for each type, under A, B and, unless it is empty, a third head.
template <typename CellsOf>
std::string tableText(const std::string& title, const Comparison& comparison, const std::string& thirdHead,
                      CellsOf cellsOf) {
  TextColumns columns("rrrrr");
  columns.add({"type", "samples", "A", "B", thirdHead});
  const auto add = [&](const std::string& name, const ComparedType& compared) {
    if (compared.samples == 0) return;
    Cells cells{name, std::to_string(compared.samples)};
    for (std::string& cell : cellsOf(compared)) cells.push_back(std::move(cell));
    columns.add(std::move(cells));
  };
  for (PositionType type = 0; type < positionTypeCount; ++type)
    add(std::to_string(type), comparison.byType[type]);
  add("all", comparison.all);
  return title + "\n" + columns.str();
}

// A table of one of the two losses, with the difference between the networks.
std::string lossText(const std::string& title, const Comparison& comparison, double Score::*loss,
                     PairedDifference ComparedType::*difference, int digits) {
  return tableText(title, comparison, "A - B (95 % interval)", [&](const ComparedType& compared) {
    const auto mean = [&](const Score& score) {
      return fixed(score.*loss / static_cast<double>(compared.samples), digits);
    };
    const auto& [a_b, low, high] = compared.*difference;
    return Cells{
        mean(compared.first), mean(compared.second),
        withSign(a_b, digits) + " (" + withSign(low, digits) + " to " + withSign(high, digits) + ")"};
  });
}

Json differenceJson(const PairedDifference& difference) {
  return {{"mean", difference.mean}, {"low", difference.low}, {"high", difference.high}};
}

Json comparedJson(const ComparedType& compared) {
  const auto ofScore = [&](const Score& score) {
    return without(scoreJson(score, compared.samples, compared.decided), {"meanError", "hitPercentage"});
  };
  return {{"samples", compared.samples},     {"decided", compared.decided},
          {"a", ofScore(compared.first)},    {"b", ofScore(compared.second)},
          {"f", differenceJson(compared.f)}, {"logLoss", differenceJson(compared.logLoss)}};
}

}  // namespace

std::string compareText(const Contender& first, const Contender& second, const Comparison& comparison) {
  return wrapped(conclusion(first, second, comparison), 0) + "\n" + wrapped("A: " + first.name, 4) +
         wrapped("B: " + second.name, 4) + tallyText(first.validation.tally) + "\n" +
         wrapped(
             "Above 0, B is better; an interval that holds 0 tells nothing. The intervals come from drawing "
             "whole games anew, 1000 times. Each network has curves of its own, fitted on these games.",
             0) +
         "\n" + lossText("f(w)", comparison, &Score::squares, &ComparedType::f, 1) + "\n" +
         lossText("Log loss", comparison, &Score::logLoss, &ComparedType::logLoss, 4) + "\n" +
         tableText("Right about the winner, % of the positions of games that were not drawn", comparison, "",
                   [](const ComparedType& compared) {
                     return Cells{percentOf(compared.first.right, compared.decided),
                                  percentOf(compared.second.right, compared.decided)};
                   }) +
         "\n";
}

Json compareJson(const Contender& first, const Contender& second, const Comparison& comparison) {
  Json types = Json::array();
  for (PositionType type = 0; type < positionTypeCount; ++type) {
    const ComparedType& compared = comparison.byType[type];
    if (compared.samples != 0) types.push_back(joined({{"type", type}}, comparedJson(compared)));
  }
  return {{"a", first.name},
          {"b", second.name},
          {"files", first.validation.files},
          {"verdict", conclusion(first, second, comparison)},
          {"tally", tallyJson(first.validation.tally)},
          {"types", types},
          {"all", comparedJson(comparison.all)}};
}

}  // namespace quorvane::inspect

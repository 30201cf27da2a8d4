#include "inspect/common/text_columns.h"
#include "inspect/measure/calibration_file.h"
#include "inspect/measure/measure_output.h"

namespace quorvane::inspect {

namespace {

constexpr PositionType allTypes = positionTypeCount;

// A table with a row for each type that has samples, and one for all, from what cellsOf(figures, ofNetwork)
// gives; ofNetwork(cell) puts a dash where the network knows nothing of the type.
template <typename CellsOf>
std::string tableText(TextColumns columns, const Judgement& judgement, const Validation& validation,
                      CellsOf cellsOf) {
  for (PositionType type = 0; type <= allTypes; ++type) {
    const bool all = type == allTypes;
    const Figures& figures = all ? judgement.all : judgement.byType[type];
    if (figures.samples == 0 && !all) continue;
    const bool learned = all || validation.patterns[type] != 0;
    std::vector<std::string> cells{all ? "all" : std::to_string(type)};
    const auto ofNetwork = [&](const std::string& cell) { return learned ? cell : "-"; };
    for (std::string& cell : cellsOf(figures, ofNetwork)) cells.push_back(std::move(cell));
    columns.add(std::move(cells));
  }
  return columns.str();
}

using Cells = std::vector<std::string>;

std::string chessText(const Validation& validation, const Judgement& judgement) {
  TextColumns columns("rrrrrrrrr");
  columns.add({"", "", "right %", "", "log loss", "", "", "Brier", ""});
  columns.add(
      {"type", "samples", "network", "material", "network", "material", "zeros", "network", "material"});
  return tableText(columns, judgement, validation, [](const Figures& figures, auto ofNetwork) {
    const std::string samples = std::to_string(figures.samples);
    if (figures.samples == 0) return Cells{samples};
    const auto mean = [&](double sum) { return fixed(sum / static_cast<double>(figures.samples), 3); };
    return Cells{samples,
                 ofNetwork(percentOf(figures.network.right, figures.decided)),
                 percentOf(figures.material.right, figures.decided),
                 ofNetwork(mean(figures.network.logLoss)),
                 mean(figures.material.logLoss),
                 mean(figures.zeros.logLoss),
                 ofNetwork(mean(figures.network.brier)),
                 mean(figures.material.brier)};
  });
}

std::string errorText(const Validation& validation, const Judgement& judgement) {
  TextColumns columns("rrrrrrrr");
  columns.add({"", "f(w)", "", "", "mean error", "", "hit %", ""});
  columns.add({"type", "network", "zeros", "material", "network", "zeros", "network", "zeros"});
  return tableText(columns, judgement, validation, [](const Figures& figures, auto ofNetwork) {
    if (figures.samples == 0) return Cells{};
    const auto mean = [&](double sum) { return fixed(sum / static_cast<double>(figures.samples), 1); };
    return Cells{ofNetwork(mean(figures.network.squares)),
                 mean(figures.zeros.squares),
                 mean(figures.material.squares),
                 ofNetwork(mean(figures.network.absolutes)),
                 mean(figures.zeros.absolutes),
                 ofNetwork(percentOf(figures.network.hits, figures.samples)),
                 percentOf(figures.zeros.hits, figures.samples)};
  });
}

std::string bandsText(const Validation& validation) {
  TextColumns columns("rrrrrrrrr");
  columns.add({"band", "samples", "value from", "to", "mean", "target", "won %", "drawn", "lost"});
  std::size_t number = 0;
  for (const Band& band : bandsOf(validation.all())) {
    columns.add({std::to_string(++number), std::to_string(band.samples), fixed(band.lowest, 2),
                 fixed(band.highest, 2), fixed(band.meanValue, 2), fixed(band.meanTarget, 2),
                 fixed(100.0 * band.won, 1), fixed(100.0 * band.drawn, 1), fixed(100.0 * band.lost, 1)});
  }
  return columns.str();
}

std::string scoreBandsText(const Judgement& judgement) {
  TextColumns columns("rrrr");
  columns.add({"expected %", "samples", "mean expected", "mean score"});
  for (const ScoreBand& band : judgement.scoreBands) {
    columns.add({fixed(100.0 * band.from, 0) + " to " + fixed(100.0 * band.from + 10.0, 0),
                 std::to_string(band.score.count), percentOf(band.expected.sum, band.expected.count),
                 percentOf(band.score.sum, band.score.count)});
  }
  return columns.str();
}

Json figuresJson(const Figures& figures, const Predictions& predictions) {
  const auto ofScore = [&](const Score& score) { return scoreJson(score, figures.samples, figures.decided); };
  const Mean agreeing{100.0 * static_cast<double>(figures.agreeing), figures.decided};
  return {{"samples", figures.samples},
          {"network", ofScore(figures.network)},
          {"zeros", without(ofScore(figures.zeros), {"rightPercentage"})},
          {"material", without(ofScore(figures.material), {"meanError", "hitPercentage"})},
          {"decided", figures.decided},
          {"signPercentage", orNull(agreeing.value())},
          {"bands", arrayOf(bandsOf(predictions), bandJson)}};
}

}  // namespace

std::string percentOf(double part, std::size_t whole) {
  const std::optional<double> share = Mean{part, whole}.value();
  return share ? fixed(100.0 * *share, 1) : "-";
}

std::string validateText(const Validation& validation, const Judgement& judgement,
                         const std::string& curvesFrom) {
  return wrapped(conclusion(validation, judgement), 0) + "\n" + tallyText(validation.tally) + "\n" +
         wrapped(
             "How well it tells the result. right %: how often the value names the winner, in games that "
             "were not drawn; a value of 0 is half right. Log loss and Brier score are those of the "
             "expected score, less is better. zeros: 50 % of everything. material: the difference of "
             "material alone, fitted on these games. all: the types of which the network has patterns. "
             "Expected scores by " +
                 curvesFrom + ".",
             0) +
         "\n" + chessText(validation, judgement) + "\n" +
         wrapped(
             "How well it meets the targets, as the learning prints it. material: by the factor for each "
             "type that suits these games best.",
             0) +
         "\n" + errorText(validation, judgement) + "\n" +
         wrapped("Expected scores against the scores that came, in %, by tenths of the scale.", 0) + "\n" +
         scoreBandsText(judgement) + "\n" +
         wrapped("Values against targets and results: the samples sorted by value, a tenth of them each.",
                 0) +
         "\n" + bandsText(validation);
}

Json scoreJson(const Score& score, std::size_t samples, std::size_t decided) {
  const auto mean = [](double sum, std::size_t count) { return orNull(Mean{sum, count}.value()); };
  return {{"f", mean(score.squares, samples)},
          {"meanError", mean(score.absolutes, samples)},
          {"hitPercentage", mean(100.0 * score.hits, samples)},
          {"logLoss", mean(score.logLoss, samples)},
          {"brier", mean(score.brier, samples)},
          {"rightPercentage", mean(100.0 * score.right, decided)}};
}

Json validateJson(const std::string& networkName, const Validation& validation, const Judgement& judgement) {
  Json types = Json::array();
  for (PositionType type = 0; type < positionTypeCount; ++type) {
    const Figures& figures = judgement.byType[type];
    if (figures.samples == 0 && validation.patterns[type] == 0) continue;
    types.push_back(joined({{"type", type}, {"patterns", validation.patterns[type]}},
                           figuresJson(figures, validation.byType[type])));
  }
  const auto scoreBandJson = [](const ScoreBand& band) {
    return Json{{"from", band.from},
                {"samples", band.score.count},
                {"expected", orNull(band.expected.value())},
                {"score", orNull(band.score.value())}};
  };
  return {{"network", networkName},
          {"files", validation.files},
          {"verdict", conclusion(validation, judgement)},
          {"games", validation.games},
          {"tally", tallyJson(validation.tally)},
          {"types", types},
          {"all", figuresJson(judgement.all, validation.all())},
          {"scoreBands", arrayOf(judgement.scoreBands, scoreBandJson)}};
}

}  // namespace quorvane::inspect

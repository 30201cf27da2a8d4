#include "inspect/common/text_columns.h"
#include "inspect/text_output.h"

namespace quorvane::inspect {

namespace {

double mean(double sum, std::size_t count) {
  return sum / static_cast<double>(count);
}

std::string percent(double part, std::size_t whole) {
  return whole == 0 ? "-" : fixed(100.0 * mean(part, whole), 1);
}

// Calls add(name, type) for each type with samples or patterns, and once for "all" with no type.
template <typename AddRow>
void forEachRow(const Validation& validation, AddRow addRow) {
  for (PositionType type = 0; type < positionTypeCount; ++type) {
    if (validation.byType[type].samples() == 0) continue;
    addRow(std::to_string(type), validation.byType[type], type);
  }
  addRow("all", validation.all, positionTypeCount);
}

const Figures& figuresOf(const Judgement& judgement, PositionType type) {
  return type == positionTypeCount ? judgement.all : judgement.byType[type];
}

std::string chessText(const Validation& validation, const Judgement& judgement) {
  TextColumns columns("rrrrrrrrr");
  columns.add({"", "", "right %", "", "log loss", "", "", "Brier", ""});
  columns.add(
      {"type", "samples", "network", "material", "network", "material", "zeros", "network", "material"});
  forEachRow(validation, [&](const std::string& name, const Measurement& measured, PositionType type) {
    const Figures& figures = figuresOf(judgement, type);
    std::vector<std::string> cells{name, std::to_string(measured.samples())};
    if (figures.samples == 0) return columns.add(cells);
    const bool learned = type == positionTypeCount || validation.patterns[type] != 0;
    const auto ofNetwork = [&](const std::string& cell) { return learned ? cell : "-"; };
    cells.push_back(ofNetwork(percent(figures.network.right, figures.decided)));
    cells.push_back(percent(figures.material.right, figures.decided));
    cells.push_back(ofNetwork(fixed(mean(figures.network.logLoss, figures.samples), 3)));
    cells.push_back(fixed(mean(figures.material.logLoss, figures.samples), 3));
    cells.push_back(fixed(mean(figures.zeros.logLoss, figures.samples), 3));
    cells.push_back(ofNetwork(fixed(mean(figures.network.brier, figures.samples), 3)));
    cells.push_back(fixed(mean(figures.material.brier, figures.samples), 3));
    columns.add(cells);
  });
  return columns.str();
}

std::string errorText(const Validation& validation, const Judgement& judgement) {
  TextColumns columns("rrrrrrrr");
  columns.add({"", "f(w)", "", "", "mean error", "", "hit %", ""});
  columns.add({"type", "network", "zeros", "material", "network", "zeros", "network", "zeros"});
  forEachRow(validation, [&](const std::string& name, const Measurement& measured, PositionType type) {
    const Figures& figures = figuresOf(judgement, type);
    const std::size_t count = figures.samples;
    if (count == 0) return columns.add({name});
    const bool learned = type == positionTypeCount || validation.patterns[type] != 0;
    const auto ofNetwork = [&](const std::string& cell) { return learned ? cell : "-"; };
    columns.add({name, ofNetwork(fixed(mean(figures.network.squares, count), 1)),
                 fixed(mean(figures.zeros.squares, count), 1),
                 fixed(mean(figures.material.squares, count), 1),
                 ofNetwork(fixed(mean(measured.network().absolutes, count), 1)),
                 fixed(mean(measured.zeros().absolutes, count), 1),
                 ofNetwork(percent(static_cast<double>(measured.network().hits), count)),
                 percent(static_cast<double>(measured.zeros().hits), count)});
  });
  return columns.str();
}

std::string bandsText(const Measurement& measured) {
  TextColumns columns("rrrrrrrrr");
  columns.add({"band", "samples", "value from", "to", "mean", "target", "won %", "drawn", "lost"});
  std::size_t number = 0;
  for (const Band& band : measured.bands()) {
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
    const bool any = band.samples != 0;
    columns.add({fixed(100.0 * band.from, 0) + " to " + fixed(100.0 * band.from + 10.0, 0),
                 std::to_string(band.samples), any ? fixed(100.0 * band.expected, 1) : "-",
                 any ? fixed(100.0 * band.score, 1) : "-"});
  }
  return columns.str();
}

}  // namespace

std::string validateText(const Validation& validation, const Judgement& judgement,
                         const std::string& curvesFrom) {
  return wrapped(verdict(validation, judgement), 0) + "\n" + tallyText(validation.tally) + "\n" +
         wrapped(
             "How well it tells the result. right %: how often the value names the winner, in games that "
             "were "
             "not drawn; a value of 0 is half right. Log loss and Brier score are those of the expected "
             "score, "
             "less is better. zeros: 50 % of everything. material: the difference of material alone, fitted "
             "on "
             "these games. all: the types of which the network has patterns. Expected scores by " +
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
         "\n" + bandsText(validation.all);
}

}  // namespace quorvane::inspect

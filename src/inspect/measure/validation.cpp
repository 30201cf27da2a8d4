#include "inspect/measure/validation.h"

#include <algorithm>
#include <cassert>
#include <memory>
#include <tuple>
#include <utility>

#include "configurations/position_type.h"
#include "inspect/common/fault.h"
#include "inspect/common/game_files.h"
#include "inspect/patterns/summary.h"
#include "inspect/position/position.h"

namespace quorvane::inspect {

namespace {

// The difference of material, as the side to move sees it.
std::int32_t materialLead(const PositionSets& sets) {
  const auto of = [&](Side side) { return materialOf(countsOf(sets.pieces[side])); };
  return of(sets.sideToMove) - of(opponent(sets.sideToMove));
}

// Replays games and measures what networks say of their quiet positions.
class Validator : public Position {
 public:
  explicit Validator(std::span<const NetworkTable> tables) : validations(tables.size()) {
    for (std::size_t index = 0; index < tables.size(); ++index) {
      networks.push_back(std::make_unique<PositionValue>(tables[index]));
      for (PositionType type = 0; type < positionTypeCount; ++type)
        validations[index].patterns[type] = patternCount(tables[index][type]);
    }
  }

  void addFile(const std::string& file, const ShowProgress& showProgress) {
    PgnDatabase database = loadGames(file);
    const std::size_t resultsBefore = tally.withResult;
    forEachGame(database, file, showProgress, [&](std::int32_t, PgnGame& game) { addGame(game); });
    if (tally.withResult == resultsBefore) throw Fault(file, "holds no game with a result");
  }

  std::vector<Validation> finish(const std::vector<std::string>& files) {
    if (tally.samples == 0) throw Fault(files.front(), "holds no position that the utility would learn from");
    for (Validation& validation : validations) {
      validation.files = files;
      validation.games = tally.withResult;
      validation.tally = tally;
    }
    return std::move(validations);
  }

 private:
  void addGame(PgnGame& game) {
    const std::int32_t result = game.result();
    tally.add(judgeGame(game, [&](std::int32_t target) { addSample(target, result); }));
  }

  void addSample(std::int32_t target, std::int32_t result) {
    const DescribedPosition position = described();
    const PositionType type = position.words.type;
    const std::int32_t outcome = currentMove.sideToMove == white ? result : -result;
    for (std::size_t index = 0; index < networks.size(); ++index) {
      PieceWorth& worths = validations[index].worth[type];
      const auto add = [&](Side side, std::int32_t kind, Square square, double worth) {
        worths[kind][squareAt(relativeRank(side, rankOf(square)), fileOf(square))].add(worth);
      };
      const double value = networks[index]->of(position, add);
      validations[index].byType[type].push_back({value, target, outcome, materialLead(position.sets),
                                                 static_cast<std::uint32_t>(tally.withResult)});
    }
  }

  std::vector<std::unique_ptr<PositionValue>> networks;
  std::vector<Validation> validations;
  GameTally tally;  // of the games before the one at work
};

}  // namespace

Predictions Validation::all() const {
  Predictions together;
  for (PositionType type = 0; type < positionTypeCount; ++type) {
    if (patterns[type] != 0) together.insert(together.end(), byType[type].begin(), byType[type].end());
  }
  return together;
}

std::vector<Band> bandsOf(Predictions predictions) {
  constexpr std::size_t bandCount = 10;
  // Targets break ties, so that the order of the games does not show.
  std::ranges::sort(predictions, {}, [](const Prediction& prediction) {
    return std::tuple(prediction.value, prediction.target, prediction.outcome);
  });
  std::vector<Band> bands;
  for (std::size_t number = 0; number < bandCount; ++number) {
    const std::size_t begin = predictions.size() * number / bandCount;
    const std::size_t end = predictions.size() * (number + 1) / bandCount;
    if (begin == end) continue;
    Band band{end - begin, predictions[begin].value, predictions[end - 1].value, 0.0, 0.0, 0.0, 0.0, 0.0};
    const auto count = static_cast<double>(band.samples);
    for (const Prediction& prediction : std::span(predictions).subspan(begin, end - begin)) {
      band.meanValue += prediction.value / count;
      band.meanTarget += prediction.target / count;
      (prediction.outcome > 0 ? band.won : prediction.outcome < 0 ? band.lost : band.drawn) += 1.0;
    }
    for (double* const share : {&band.won, &band.drawn, &band.lost}) *share /= count;
    bands.push_back(band);
  }
  return bands;
}

std::vector<Validation> validateOn(std::span<const NetworkTable> tables,
                                   const std::vector<std::string>& files, const ShowProgress& showProgress) {
  assert(!tables.empty() && !files.empty());
  Validator validator(tables);
  for (const std::string& file : files) validator.addFile(file, showProgress);
  return validator.finish(files);
}

Validation validateOn(const NetworkTable& table, const std::vector<std::string>& files,
                      const ShowProgress& showProgress) {
  return std::move(validateOn(std::span(&table, 1), files, showProgress).front());
}

}  // namespace quorvane::inspect

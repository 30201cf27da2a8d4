#include "inspect/measure/validation.h"

#include <algorithm>
#include <memory>
#include <span>
#include <tuple>
#include <utility>

#include "configurations/position_type.h"
#include "inspect/common/fault.h"
#include "inspect/common/game_files.h"
#include "inspect/patterns/summary.h"
#include "inspect/position/position.h"

namespace quorvane::inspect {

namespace {

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
    const std::size_t gamesBefore = games;
    const std::int32_t count = gameCount(database);
    for (std::int32_t index = 0; index < count; ++index) {
      addGame(*database.game(index));
      showProgress(file, index + 1, count);
    }
    if (games == gamesBefore) throw Fault(file, "holds no game with a result");
  }

  std::vector<Validation> finish(const std::vector<std::string>& files) {
    if (samples == 0) throw Fault(files.front(), "holds no position that the utility would learn from");
    for (Validation& validation : validations) {
      validation.files = files;
      validation.games = games;
      validation.tally = tally;
      for (PositionType type = 0; type < positionTypeCount; ++type) {
        if (validation.patterns[type] != 0) validation.all.add(validation.byType[type]);
      }
    }
    return std::move(validations);
  }

 private:
  void addGame(PgnGame& game) {
    const auto number = static_cast<std::uint32_t>(games);
    const std::int32_t result = game.result();
    if (result != noResult) ++games;
    tally.add(judgeGame(game, [&](std::int32_t target) {
      const DescribedPosition position = described();
      const Side side = currentMove.sideToMove;
      Prediction prediction{0.0, target, side == white ? result : -result, materialOf(position.sets),
                            number};
      for (std::size_t index = 0; index < networks.size(); ++index) {
        Validation& validation = validations[index];
        prediction.value = networks[index]->of(position, [&](Side of, std::int32_t kind, Square square,
                                                             double worth) {
          validation
              .worth[position.words.type][kind][squareAt(relativeRank(of, rankOf(square)), fileOf(square))]
              .add(worth);
        });
        validation.byType[position.words.type].add(prediction);
      }
      ++samples;
    }));
  }

  // The difference of material, as the side to move sees it.
  static std::int32_t materialOf(const PositionSets& sets) {
    const auto of = [&](Side side) { return quorvane::materialOf(countsOf(sets.pieces[side])); };
    return of(sets.sideToMove) - of(opponent(sets.sideToMove));
  }

  std::vector<std::unique_ptr<PositionValue>> networks;
  std::vector<Validation> validations;
  std::size_t games = 0;
  std::size_t samples = 0;
  GameTally tally;
};

}  // namespace

void Measurement::add(const Prediction& prediction) {
  all.push_back(prediction);
  residuals.add(prediction.target - prediction.value);
  residualsOfZeros.add(prediction.target);
  if (prediction.outcome == 0) return;
  ++decidedSamples;
  if (prediction.value * prediction.outcome > 0.0) ++agreeingSamples;
}

void Measurement::add(const Measurement& other) {
  all.insert(all.end(), other.all.begin(), other.all.end());
  residuals.add(other.residuals);
  residualsOfZeros.add(other.residualsOfZeros);
  decidedSamples += other.decidedSamples;
  agreeingSamples += other.agreeingSamples;
}

std::vector<Band> Measurement::bands() const {
  constexpr std::size_t bandCount = 10;
  std::vector<Prediction> sorted = all;
  // Targets break ties, so that the order of the games does not show.
  std::ranges::sort(sorted, {}, [](const Prediction& prediction) {
    return std::tuple(prediction.value, prediction.target, prediction.outcome);
  });
  std::vector<Band> bands;
  for (std::size_t number = 0; number < bandCount; ++number) {
    const std::size_t begin = sorted.size() * number / bandCount;
    const std::size_t end = sorted.size() * (number + 1) / bandCount;
    if (begin == end) continue;
    Band band{end - begin, sorted[begin].value, sorted[end - 1].value, 0.0, 0.0, 0.0, 0.0, 0.0};
    const auto count = static_cast<double>(band.samples);
    for (const Prediction& prediction : std::span(sorted).subspan(begin, end - begin)) {
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
  Validator validator(tables);
  for (const std::string& file : files) validator.addFile(file, showProgress);
  return validator.finish(files);
}

Validation validateOn(const NetworkTable& table, const std::vector<std::string>& files,
                      const ShowProgress& showProgress) {
  return std::move(validateOn(std::span(&table, 1), files, showProgress).front());
}

}  // namespace quorvane::inspect

#include "inspect/validation.h"

#include <algorithm>
#include <deque>
#include <span>
#include <utility>

#include "inspect/fault.h"
#include "inspect/game_files.h"
#include "inspect/position.h"
#include "inspect/summary.h"
#include "learning/quiet_positions.h"
#include "learning/side_configurations.h"
#include "network/network.h"

namespace quorvane {

namespace {

// Replays games and measures what the network says of their quiet positions.
class Validator : public Position {
 public:
  Validator() {
    for (PositionType type = 0; type < positionTypeCount; ++type) {
      networks.emplace_back(Network::TableAsItStands{}).classifyPosition(type, false);
      validation.patterns[type] = patternCount(networks.back().row());
    }
  }

  void addFile(const std::string& file, const ShowProgress& showProgress) {
    PgnDatabase database = loadGames(file);
    const std::size_t gamesBefore = validation.games;
    const std::int32_t count = gameCount(database);
    for (std::int32_t index = 0; index < count; ++index) {
      PgnGame& game = *database.game(index);
      if (game.result() != noResult) addGame(game, game.result());
      showProgress(file, index + 1, count);
    }
    if (validation.games == gamesBefore) throw Fault(file, "holds no game with a result");
    validation.files.push_back(file);
  }

  Validation finish() {
    std::size_t samples = 0;
    for (PositionType type = 0; type < positionTypeCount; ++type) {
      samples += validation.byType[type].samples();
      if (validation.patterns[type] != 0) validation.all.add(validation.byType[type]);
    }
    if (samples == 0)
      throw Fault(validation.files.front(), "holds no position that the utility would learn from");
    return std::move(validation);
  }

 private:
  void addGame(PgnGame& game, std::int32_t result) {
    ++validation.games;
    QuietPositions::forEach(game, result, [&](std::int32_t target) {
      const PositionType type = classifier.classifyPosition(Network::classifyBoard, false);
      const Side side = currentMove.sideToMove;
      const double value = networks[static_cast<std::size_t>(type)].evaluate(sampleOf(side));
      validation.byType[type].add(value, target, side == white ? result : -result);
    });
  }

  static Sample sampleOf(Side side) {
    Network::computeConfigurations();
    const SideConfigurations own(kings[side]);
    const SideConfigurations opposing(kings[1 - side]);
    return {{own.list().begin(), own.list().end()}, {opposing.list().begin(), opposing.list().end()}};
  }

  Network classifier{Network::TableAsItStands{}};
  std::deque<Network> networks;  // one for each type, so that its caches meet the samples of that type alone
  Validation validation;
};

}  // namespace

void Measurement::add(double value, std::int32_t target, std::int32_t outcome) {
  predictions.push_back({value, target});
  residuals.add(target - value);
  residualsOfZeros.add(target);
  if (outcome == 0) return;
  ++decidedSamples;
  if (outcome > 0 ? value > 0.0 : value < 0.0) ++agreeingSamples;
}

void Measurement::add(const Measurement& other) {
  predictions.insert(predictions.end(), other.predictions.begin(), other.predictions.end());
  const auto addResiduals = [](FitSystem::Residuals& sum, const FitSystem::Residuals& more) {
    sum.squares += more.squares;
    sum.absolutes += more.absolutes;
    sum.hits += more.hits;
  };
  addResiduals(residuals, other.residuals);
  addResiduals(residualsOfZeros, other.residualsOfZeros);
  decidedSamples += other.decidedSamples;
  agreeingSamples += other.agreeingSamples;
}

std::vector<Band> Measurement::bands() const {
  constexpr std::size_t bandCount = 10;
  std::vector<Prediction> sorted = predictions;
  // Targets break ties, so that the order of the games does not show.
  std::ranges::sort(sorted, {}, [](const Prediction& one) { return std::pair(one.value, one.target); });
  std::vector<Band> bands;
  for (std::size_t band = 0; band < bandCount; ++band) {
    const std::size_t begin = sorted.size() * band / bandCount;
    const std::size_t end = sorted.size() * (band + 1) / bandCount;
    if (begin == end) continue;
    Band made{end - begin, sorted[begin].value, sorted[end - 1].value, 0.0, 0.0};
    for (const Prediction& one : std::span(sorted).subspan(begin, end - begin)) {
      made.meanValue += one.value / static_cast<double>(made.samples);
      made.meanTarget += one.target / static_cast<double>(made.samples);
    }
    bands.push_back(made);
  }
  return bands;
}

Validation validateOn(const std::vector<std::string>& files, const ShowProgress& showProgress) {
  Validator validator;
  for (const std::string& file : files) validator.addFile(file, showProgress);
  return validator.finish();
}

}  // namespace quorvane

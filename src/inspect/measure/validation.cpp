#include "inspect/measure/validation.h"

#include <algorithm>
#include <span>
#include <tuple>
#include <utility>

#include "board/piece.h"
#include "board/ring.h"
#include "inspect/common/fault.h"
#include "inspect/common/game_files.h"
#include "inspect/patterns/summary.h"
#include "inspect/position/piece_worth.h"
#include "inspect/position/position.h"
#include "network/network.h"

namespace quorvane::inspect {

namespace {

// Replays games and measures what the network says of their quiet positions.
class Validator : public Position {
 public:
  Validator() {
    for (PositionType type = 0; type < positionTypeCount; ++type) {
      classifier.classifyPosition(type, false);
      validation.patterns[type] = patternCount(classifier.row());
    }
  }

  void addFile(const std::string& file, const ShowProgress& showProgress) {
    PgnDatabase database = loadGames(file);
    const std::size_t gamesBefore = validation.games;
    const std::int32_t count = gameCount(database);
    for (std::int32_t index = 0; index < count; ++index) {
      addGame(*database.game(index));
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
  void addGame(PgnGame& game) {
    const auto number = static_cast<std::uint32_t>(validation.games);
    const std::int32_t result = game.result();
    if (result != noResult) ++validation.games;
    const GameVerdict verdict = judgeGame(game, [&](std::int32_t target) {
      const PositionType type = classifier.classifyPosition(Network::classifyBoard, false);
      Network::computeConfigurations();
      const Side side = currentMove.sideToMove;
      Prediction prediction{0.0, target, side == white ? result : -result, 0, number};
      addSide(prediction, type, side, 1);
      addSide(prediction, type, opponent(side), -1);
      validation.byType[type].add(prediction);
    });
    validation.tally.add(verdict);
  }

  void addSide(Prediction& prediction, PositionType type, Side side, std::int32_t sign) {
    for (const Piece& piece : Ring(kings[side])) {
      const double worth = worths.of(type, piece.kind, piece.configuration);
      const Square square = squareAt(relativeRank(side, rankOf(piece.square)), fileOf(piece.square));
      validation.worth[type][piece.kind][square].add(worth);
      prediction.value += sign * worth;
      prediction.material += sign * piece.material;
    }
  }

  Network classifier{Network::TableAsItStands{}};
  PieceWorths worths;
  Validation validation;
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

Validation validateOn(const std::vector<std::string>& files, const ShowProgress& showProgress) {
  Validator validator;
  for (const std::string& file : files) validator.addFile(file, showProgress);
  return validator.finish();
}

}  // namespace quorvane::inspect

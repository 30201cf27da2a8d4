#include "inspect/measure/judgement.h"

#include <algorithm>
#include <cmath>

#include "inspect/measure/logistic_curve.h"

namespace quorvane::inspect {

namespace {

constexpr std::size_t scoreBandCount = 10;

// The factor c that makes sum (t - c m)^2 least: sum t m / sum m^2; 0 where no sample has a difference m.
double materialFactor(const Predictions& predictions) {
  double products = 0.0;
  double squares = 0.0;
  for (const Prediction& prediction : predictions) {
    const double material = prediction.material;
    products += prediction.target * material;
    squares += material * material;
  }
  return squares > 0.0 ? products / squares : 0.0;
}

Figures figuresOf(const Predictions& predictions, double steepness) {
  const double factor = materialFactor(predictions);
  std::vector<ScoredValue> byMaterial;
  byMaterial.reserve(predictions.size());
  for (const Prediction& prediction : predictions)
    byMaterial.push_back({factor * prediction.material, prediction.score()});
  const double materialSteepness = fitSteepness(byMaterial);
  Figures figures;
  figures.samples = predictions.size();
  for (const Prediction& prediction : predictions) {
    if (prediction.outcome != 0) ++figures.decided;
    if (prediction.value * prediction.outcome > 0.0) ++figures.agreeing;
    figures.network.add(scoreOf(prediction, prediction.value, steepness));
    figures.zeros.add(scoreOf(prediction, 0.0, 0.0));
    figures.material.add(scoreOf(prediction, factor * prediction.material, materialSteepness));
  }
  return figures;
}

void addToBands(std::vector<ScoreBand>& bands, const Predictions& predictions, double steepness) {
  for (const Prediction& prediction : predictions) {
    const double expected = expectedScore(steepness, prediction.value);
    const auto place = static_cast<std::size_t>(expected * scoreBandCount);
    ScoreBand& band = bands[std::min(place, scoreBandCount - 1)];
    band.expected.add(expected);
    band.score.add(prediction.score());
  }
}

// "25 % below", "3 % above", "no different from".
std::string compared(double figure, double other) {
  if (figure > 100.0 * other) return "far above";  // whatever it is divided by
  const double percent = other > 0.0 ? 100.0 * (figure / other - 1.0) : 0.0;
  const long rounded = std::lround(std::abs(percent));
  if (rounded == 0) return "no different from";
  return std::to_string(rounded) + (percent < 0.0 ? " % below" : " % above");
}

std::string percent(double part, std::size_t whole) {
  return std::to_string(std::lround(100.0 * part / static_cast<double>(whole))) + " %";
}

// "Learned something in 7 of 8 types", by whether f(w) is below that of zeros.
std::string learnedIn(const Validation& validation, const Judgement& judgement) {
  std::size_t types = 0;
  std::size_t learned = 0;
  std::string others;
  for (PositionType type = 0; type < positionTypeCount; ++type) {
    const Figures& figures = judgement.byType[type];
    if (validation.patterns[type] == 0 || figures.samples == 0) continue;
    ++types;
    if (figures.network.squares < figures.zeros.squares) {
      ++learned;
    } else {
      others += (others.empty() ? " (not in " : ", ") + std::to_string(type);
    }
  }
  const std::string allTypes = types == 1 ? "the one type" : "all " + std::to_string(types) + " types";
  if (learned == 0) return "Learned nothing that holds on these games, in " + allTypes;
  if (learned == types) return "Learned something in " + allTypes;
  return "Learned something in " + std::to_string(learned) + " of " + std::to_string(types) + " types" +
         others + ")";
}

}  // namespace

void Score::add(const Score& other) {
  for (const auto sum :
       {&Score::squares, &Score::absolutes, &Score::hits, &Score::logLoss, &Score::brier, &Score::right}) {
    this->*sum += other.*sum;
  }
}

Score scoreOf(const Prediction& prediction, double value, double steepness) {
  const ScoredValue scored{value, prediction.score()};
  const double error = prediction.target - value;
  const double miss = scored.score - expectedScore(steepness, value);
  const double agreement = value * prediction.outcome;
  const double right = prediction.outcome == 0 ? 0.0 : agreement > 0.0 ? 1.0 : agreement < 0.0 ? 0.0 : 0.5;
  return {error * error,
          std::abs(error),
          std::abs(error) < 1.0 ? 1.0 : 0.0,
          logLoss(steepness, scored),
          miss * miss,
          right};
}

void Figures::add(const Figures& other) {
  for (const auto count : {&Figures::samples, &Figures::decided, &Figures::agreeing})
    this->*count += other.*count;
  for (const auto score : {&Figures::network, &Figures::zeros, &Figures::material})
    (this->*score).add(other.*score);
}

Judgement judge(const Validation& validation, const Calibration& curves) {
  Judgement judgement;
  for (std::size_t band = 0; band < scoreBandCount; ++band)
    judgement.scoreBands.push_back({static_cast<double>(band) / scoreBandCount, {}, {}});
  for (PositionType type = 0; type < positionTypeCount; ++type) {
    const double steepness = curves.types[type].steepness;
    judgement.byType[type] = figuresOf(validation.byType[type], steepness);
    if (validation.patterns[type] == 0) continue;
    judgement.all.add(judgement.byType[type]);
    addToBands(judgement.scoreBands, validation.byType[type], steepness);
  }
  return judgement;
}

std::string conclusion(const Validation& validation, const Judgement& judgement) {
  const Figures& all = judgement.all;
  if (all.samples == 0) return "The network has no patterns for any position of these games.";
  std::string text = learnedIn(validation, judgement) + ": f(w) " +
                     compared(all.network.squares, all.zeros.squares) + " that of zeros, " +
                     compared(all.network.squares, all.material.squares) + " that of material";
  if (all.decided == 0) return text + ". All of these games were drawn.";
  return text + "; right about the winner in " + percent(all.network.right, all.decided) +
         " of the positions where material says " + percent(all.material.right, all.decided) + ".";
}

}  // namespace quorvane::inspect

#include "learning/fit/plain_fit.h"

#include <cmath>

namespace quorvane {

namespace {

double targetOf(const Sample& sample) {
  return static_cast<double>(static_cast<float>(sample.target));
}

}  // namespace

PlainFit::PlainFit(std::vector<Sample> allSamples, Network& model)
    : samples(std::move(allSamples)), network(model) {}

template <typename Visit>
void PlainFit::forEachNode(Visit visit) {
  for (NodeList& list : network.row()) {
    for (PatternNode& node : list) visit(node);
  }
}

template <typename Fire>
void PlainFit::forEachFiring(const std::vector<PieceConfiguration>& list, Fire fire) {
  for (const PieceConfiguration& piece : list) forEachFiringNode(network.row()[piece.kind], piece.word, fire);
}

std::vector<double> PlainFit::fit() {
  network.clearWeights();
  std::vector<double> objectives{buildPreconditioner(), conjugateStep()};
  while (objectives.end()[-2] - objectives.back() > 0.1) objectives.push_back(conjugateStep());
  return objectives;
}

double PlainFit::buildPreconditioner() {
  forEachNode([](PatternNode& node) { node.direction = node.preconditioner = node.netCount = 0; });
  double squares = 0.0;
  for (const Sample& sample : samples) {
    const double residual = targetOf(sample) - accumulateCounts(sample);
    squares += residual * residual;
    accumulateGradient(sample, 2.0 * residual);
  }
  forEachNode([](PatternNode& node) {
    if (node.preconditioner != 0.0) node.preconditioner = 1.0 / node.preconditioner;
  });
  const double alpha = lineSearch();
  previousNorm = 0.0;
  forEachNode([&](PatternNode& node) {
    const double step = node.direction * node.preconditioner;
    node.weight = static_cast<float>(static_cast<double>(node.weight) + step * alpha);
    previousNorm += step * node.direction;
    node.previousDirection = node.direction;
    node.direction = 0.0;
  });
  network.clearCaches();
  return samples.empty() ? 0.0 : squares / static_cast<double>(samples.size());
}

double PlainFit::conjugateStep() {
  double squares = 0.0;
  for (const Sample& sample : samples) {
    const double residual = targetOf(sample) - network.evaluate(sample);
    squares += residual * residual;
    accumulateGradient(sample, 2.0 * residual);
  }
  double norm = 0.0;
  forEachNode([&](PatternNode& node) { norm += node.preconditioner * node.direction * node.direction; });
  const double beta = previousNorm == 0.0 ? 0.0 : norm / previousNorm;
  previousNorm = norm;
  forEachNode([&](PatternNode& node) { node.direction += beta * node.previousDirection; });
  const double alpha = lineSearch();
  forEachNode([&](PatternNode& node) {
    node.weight =
        static_cast<float>(static_cast<double>(node.weight) + alpha * (node.preconditioner * node.direction));
    node.previousDirection = node.direction;
    node.direction = 0.0;
  });
  network.clearCaches();
  return samples.empty() ? 0.0 : squares / static_cast<double>(samples.size());
}

double PlainFit::lineSearch() {
  double slopesByResiduals = 0.0;
  double slopeSquares = 0.0;
  for (const Sample& sample : samples) {
    double slope;
    const double value = directionTerms(sample, slope);
    slopesByResiduals += slope * (targetOf(sample) - value);
    slopeSquares += slope * slope;
  }
  return slopeSquares == 0.0 ? 0.0 : slopesByResiduals / slopeSquares;
}

double PlainFit::accumulateCounts(const Sample& sample) {
  double value = 0.0;
  forEachFiring(sample.ownList, [&](PatternNode& node) {
    ++node.netCount;
    value += static_cast<double>(node.weight);
  });
  forEachFiring(sample.opposingList, [&](PatternNode& node) {
    --node.netCount;
    value -= static_cast<double>(node.weight);
  });
  const auto square = [](PatternNode& node) {
    node.preconditioner += static_cast<double>(node.netCount) * static_cast<double>(node.netCount);
    node.netCount = 0;
  };
  forEachFiring(sample.ownList, square);
  forEachFiring(sample.opposingList, square);
  return value;
}

void PlainFit::accumulateGradient(const Sample& sample, double amount) {
  forEachFiring(sample.ownList, [&](PatternNode& node) { node.direction += amount; });
  forEachFiring(sample.opposingList, [&](PatternNode& node) { node.direction -= amount; });
}

double PlainFit::directionTerms(const Sample& sample, double& slope) {
  slope = 0.0;
  double value = 0.0;
  forEachFiring(sample.ownList, [&](const PatternNode& node) {
    value += static_cast<double>(node.weight);
    slope += node.preconditioner * node.direction;
  });
  forEachFiring(sample.opposingList, [&](const PatternNode& node) {
    value -= static_cast<double>(node.weight);
    slope -= node.preconditioner * node.direction;
  });
  return value;
}

double PlainFit::objective() {
  double squares = 0.0;
  for (const Sample& sample : samples) {
    const double residual = targetOf(sample) - network.evaluate(sample);
    squares += residual * residual;
  }
  return squares / static_cast<double>(samples.size());
}

float PlainFit::hitPercentage() {
  double hits = 0.0;
  for (const Sample& sample : samples) {
    if (std::abs(targetOf(sample) - network.evaluate(sample)) < 1.0) ++hits;
  }
  return static_cast<float>(100.0 * hits / static_cast<double>(samples.size()));
}

}  // namespace quorvane

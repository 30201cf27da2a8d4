#ifndef QUORVANE_TESTS_LEARNING_FIT_PLAIN_FIT_H_
#define QUORVANE_TESTS_LEARNING_FIT_PLAIN_FIT_H_

#include <vector>

#include "learning/fit/residuals.h"
#include "network/network.h"

namespace quorvane {

// The fit as its formulas read, node by node and sample by sample: the yardstick of the fast one. Works on
// the row that the network has in use, through the caches of Network::evaluate.
class PlainFit {
 public:
  PlainFit(std::vector<Sample> allSamples, Network& model) : samples(std::move(allSamples)), network(model) {}

  // f(w) at the weights on entry of each step, the first step of all being that along the preconditioned
  // gradient.
  std::vector<double> fit() {
    network.clearWeights();
    std::vector<double> objectives{buildPreconditioner(), conjugateStep()};
    while (objectives.end()[-2] - objectives.back() > 0.1) objectives.push_back(conjugateStep());
    return objectives;
  }

  // Starts with the caches as they are.
  Residuals residuals() {
    Residuals all;
    for (const Sample& sample : samples) all.add(targetOf(sample) - network.evaluate(sample));
    return all;
  }

 private:
  static double targetOf(const Sample& sample) {
    return static_cast<double>(static_cast<float>(sample.target));
  }

  template <typename Visit>
  void forEachNode(Visit visit) {
    for (NodeList& list : network.row()) {
      for (PatternNode& node : list) visit(node);
    }
  }

  // Calls fire(node, sign) for every firing, those of own pieces with 1.0 and then those of opposing ones
  // with -1.0.
  template <typename Fire>
  void forEachFiring(const Sample& sample, Fire fire) {
    for (const auto& [list, sign] :
         {std::pair(&sample.ownList, 1.0), std::pair(&sample.opposingList, -1.0)}) {
      for (const PieceConfiguration& piece : *list) {
        forEachFiringNode(network.row()[piece.kind], piece.word,
                          [&, signOfList = sign](PatternNode& node) { fire(node, signOfList); });
      }
    }
  }

  double buildPreconditioner() {
    forEachNode([](PatternNode& node) { node.direction = node.preconditioner = node.netCount = 0; });
    Residuals residuals;
    for (const Sample& sample : samples) {
      const double residual = targetOf(sample) - accumulateCounts(sample);
      residuals.add(residual);
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
    return residuals.objective();
  }

  double conjugateStep() {
    Residuals residuals;
    for (const Sample& sample : samples) {
      const double residual = targetOf(sample) - network.evaluate(sample);
      residuals.add(residual);
      accumulateGradient(sample, 2.0 * residual);
    }
    double norm = 0.0;
    forEachNode([&](PatternNode& node) { norm += node.preconditioner * node.direction * node.direction; });
    const double beta = previousNorm == 0.0 ? 0.0 : norm / previousNorm;
    previousNorm = norm;
    forEachNode([&](PatternNode& node) { node.direction += beta * node.previousDirection; });
    const double alpha = lineSearch();
    forEachNode([&](PatternNode& node) {
      const double step = alpha * (node.preconditioner * node.direction);
      node.weight = static_cast<float>(static_cast<double>(node.weight) + step);
      node.previousDirection = node.direction;
      node.direction = 0.0;
    });
    network.clearCaches();
    return residuals.objective();
  }

  double lineSearch() {
    double slopesByResiduals = 0.0;
    double slopeSquares = 0.0;
    for (const Sample& sample : samples) {
      double value = 0.0;
      double slope = 0.0;
      forEachFiring(sample, [&](const PatternNode& node, double sign) {
        value += sign * static_cast<double>(node.weight);
        slope += sign * (node.preconditioner * node.direction);
      });
      slopesByResiduals += slope * (targetOf(sample) - value);
      slopeSquares += slope * slope;
    }
    return slopeSquares == 0.0 ? 0.0 : slopesByResiduals / slopeSquares;
  }

  double accumulateCounts(const Sample& sample) {
    double value = 0.0;
    forEachFiring(sample, [&](PatternNode& node, double sign) {
      node.netCount += static_cast<std::int32_t>(sign);
      value += sign * static_cast<double>(node.weight);
    });
    forEachFiring(sample, [](PatternNode& node, double) {
      node.preconditioner += static_cast<double>(node.netCount) * static_cast<double>(node.netCount);
      node.netCount = 0;
    });
    return value;
  }

  void accumulateGradient(const Sample& sample, double amount) {
    forEachFiring(sample, [&](PatternNode& node, double sign) { node.direction += sign * amount; });
  }

  std::vector<Sample> samples;
  Network& network;
  double previousNorm = 1.0;
};

}  // namespace quorvane

#endif  // QUORVANE_TESTS_LEARNING_FIT_PLAIN_FIT_H_

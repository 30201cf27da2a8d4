#include <iostream>

#include "learning/learner.h"

namespace quorvane {

namespace {

// The fit ends when a step lowers f(w) by no more than this.
constexpr double tolerance = 0.1;

}  // namespace

void Learner::fitAllWeights() {
  for (PositionType type = firstLearnedType; type <= lastPositionType; ++type) {
    std::cout << "Fitting weights of positiontype " << type << ".\n";
    currentSet = &sampleSets[type];
    network.classifyPosition(type, true);
    fitWeights();
    network.conjugateStep(*currentSet, true);
  }
}

void Learner::fitWeights() {
  network.clearWeights();
  double previous = network.buildPreconditioner(*currentSet);
  std::cout << "Weight fitting ";
  double objective = network.conjugateStep(*currentSet, false);
  while (previous - objective > tolerance) {
    previous = objective;
    objective = network.conjugateStep(*currentSet, false);
  }
  std::cout << " done.\n";
  Network::saveNetwork();
  std::cout << "\n";
  std::cout << "Hit percentage: " << network.hitPercentage(*currentSet) << "%\n\n";
}

}  // namespace quorvane

#include <iostream>

#include "learning/fit_system.h"
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
    FitSystem system(*currentSet, network.row());
    fitWeights(system);
    network.conjugateStep(system, true);
  }
}

void Learner::fitWeights(FitSystem& system) {
  network.clearWeights();
  double previous = network.buildPreconditioner(system);
  std::cout << "Weight fitting ";
  double objective = network.conjugateStep(system, false);
  while (previous - objective > tolerance) {
    previous = objective;
    objective = network.conjugateStep(system, false);
  }
  std::cout << " done.\n";
  Network::saveNetwork();
  std::cout << "\n";
  std::cout << "Hit percentage: " << Network::hitPercentage(system) << "%\n\n";
}

}  // namespace quorvane

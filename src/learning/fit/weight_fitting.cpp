#include "learning/fit/fit_progress.h"
#include "learning/fit/fit_system.h"
#include "learning/learner.h"

namespace quorvane {

namespace {

// The fit ends when a step lowers f(w) by no more than this.
constexpr double tolerance = 0.1;

}  // namespace

Saved Learner::fitAllWeights() {
  FitProgress progress;
  return fitAllWeights(progress);
}

Saved Learner::fitAllWeights(FitProgress& progress) {
  Saved saved = Saved::no;
  for (PositionType type = firstLearnedType; type <= lastPositionType; ++type) {
    progress.begins(type);
    use(type);
    FitSystem system(*currentSet, network.row());
    currentSet->release();  // the system holds what it needs of the samples
    saved = fitWeights(system, progress);
    progress.ends(network.conjugateStep(system, true));
  }
  return saved;
}

Saved Learner::fitWeights(FitSystem& system, FitProgress& progress) {
  network.clearWeights();
  progress.building();
  Residuals residuals = network.buildPreconditioner(system);
  progress.built(system, residuals);
  double lowered = 0.0;
  do {
    const double previous = residuals.objective();
    residuals = network.conjugateStep(system, false);
    progress.stepped(residuals);
    lowered = previous - residuals.objective();
  } while (lowered > tolerance);
  progress.fitted();
  const Saved saved = Network::saveNetwork();
  progress.saved(Network::hitPercentage(system));
  return saved;
}

}  // namespace quorvane

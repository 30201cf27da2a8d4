// The fit of the weights w(i) of a row: linear least squares, by conjugate gradients (Hestenes and Stiefel
// 1952) with the Jacobi preconditioner, the ratio of Fletcher and Reeves (1964) and an exact line search.
//
//   f(w)  = 1/N sum_s r(s)^2,   r(s) = t(s) - sum_i c(i, s) w(i)     what is lowered
//   p(i)  = 1 / sum_s c(i, s)^2                                      0 for a node that never counts: it keeps
//   weight 0 g(i)  = sum_s 2 r(s) c(i, s)                                     minus the gradient of N f beta
//   = sum_i p(i) g(i)^2 / (the same of the step before)        0 if that was 0, and in the first step d(i)  =
//   g(i) + beta d(i) of the step before F(s)  = sum_i c(i, s) p(i) d(i)                                  how
//   fast v(s) grows along the step alpha = sum_s F(s) r(s) / sum_s F(s)^2                           0 if the
//   divisor is 0: the weights stay w(i) += alpha p(i) d(i)                                          rounded
//   to 32 bits
//
// Everything else is held in doubles. Products go from left to right as written here and sums over the nodes
// in the order of the lists, kind after kind: the weights are the same everywhere, bit for bit.

#include <iostream>

#include "learning/fit_system.h"
#include "network/network.h"

namespace quorvane {

namespace {

double mean(double sum, std::size_t count) {
  return count == 0 ? 0.0 : sum / static_cast<double>(count);
}

void printResiduals(const FitSystem& system, const FitSystem::Residuals& residuals) {
  const std::size_t count = system.sampleCount();
  std::cout << "f(w)=" << mean(residuals.squares, count)
            << "  Mean error: " << mean(residuals.absolutes, count) << "\n";
}

}  // namespace

double Network::buildPreconditioner(FitSystem& system) {
  std::cout << "Building preconditioner ...";
  const std::vector<double> squares = system.squaredCounts();
  for (std::size_t i = 0; i < squares.size(); ++i) {
    PatternNode& node = *system.nodes()[i];
    node.direction = 0.0;
    node.netCount = 0;
    node.preconditioner = squares[i] != 0.0 ? 1.0 / squares[i] : 0.0;
  }
  system.updateValues();
  const FitSystem::Residuals residuals = system.residualsAndGradient();
  std::cout << " done.\n\n";
  if (system.sampleCount() != 0) printResiduals(system, residuals);

  const double alpha = system.lineSearch();
  previousNorm = 0.0;
  for (PatternNode* node : system.nodes()) {
    const double q = node->direction * node->preconditioner;
    node->weight = static_cast<float>(static_cast<double>(node->weight) + q * alpha);
    previousNorm += q * node->direction;
    node->previousDirection = node->direction;
    node->direction = 0.0;
  }
  system.updateValues();
  return mean(residuals.squares, system.sampleCount());
}

double Network::conjugateStep(FitSystem& system, bool reportOnly) {
  if (reportOnly) {
    if (system.sampleCount() != 0) {
      printResiduals(system, system.residuals(FitSystem::Caches::filledByPassBefore));
      std::cout << "\n";
    }
    return 0.0;
  }
  const FitSystem::Residuals residuals = system.residualsAndGradient();
  std::cout << ".";
  double norm = 0.0;
  for (const PatternNode* node : system.nodes())
    norm += node->preconditioner * node->direction * node->direction;
  const double beta = previousNorm == 0.0 ? 0.0 : norm / previousNorm;
  previousNorm = norm;
  for (PatternNode* node : system.nodes()) node->direction += beta * node->previousDirection;

  const double alpha = system.lineSearch();
  for (PatternNode* node : system.nodes()) {
    node->weight = static_cast<float>(static_cast<double>(node->weight) +
                                      alpha * (node->preconditioner * node->direction));
    node->previousDirection = node->direction;
    node->direction = 0.0;
  }
  system.updateValues();
  return mean(residuals.squares, system.sampleCount());
}

float Network::hitPercentage(const FitSystem& system) {
  if (system.sampleCount() == 0) return 100.0F;
  const auto hits = static_cast<double>(system.residuals(FitSystem::Caches::cleared).hits);
  return static_cast<float>(100.0 * hits / static_cast<double>(system.sampleCount()));
}

}  // namespace quorvane

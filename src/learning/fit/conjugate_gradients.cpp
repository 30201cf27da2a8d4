// The fit of the weights w(i) of a position type: linear least squares, by conjugate gradients (Hestenes and
// Stiefel 1952) with the Jacobi preconditioner, the ratio of Fletcher and Reeves (1964) and an exact line
// search.
//
// With c(i, s) the net count of node i on sample s, t(s) its target, rounded to 32 bits, and N the number of
// samples:
//
//   v(s)  = sum_i c(i, s) w(i)            what evaluate gives, rounding of its caches included
//   r(s)  = t(s) - v(s)
//   f(w)  = sum_s r(s) * r(s) / N         what is lowered; 0 if N is 0
//   p(i)  = 1 / sum_s c(i, s)^2           0 if the sum is 0: the node keeps the weight 0
//   g(i)  = sum_s 2 r(s) c(i, s)          minus the gradient of N f
//
// The first step goes along the preconditioned gradient, q(i) = g(i) * p(i):
//
//   F(s)  = sum_i c(i, s) (p(i) * g(i))   how fast v(s) grows along the step
//   alpha = sum_s F(s) * r(s) / sum_s F(s) * F(s)
//                                         0 if the divisor is 0: the weights stay. r(s) without any cache's
//                                         rounding
//   w(i)  = w(i) + q(i) * alpha           rounded to 32 bits
//   norm  = sum_i q(i) * g(i)
//   d(i)  = g(i)
//
// Every further step:
//
//   norm  = sum_i p(i) * g(i) * g(i)
//   beta  = norm / previous norm          0 if that was 0
//   d(i)  = g(i) + beta * previous d(i)
//   F(s)  = sum_i c(i, s) (p(i) * d(i))
//   alpha                                 as above
//   w(i)  = w(i) + alpha * (p(i) * d(i))  rounded to 32 bits
//
// All but targets, weights and what the caches hold is held in doubles. Products go from left to right as
// written here. What is summed over the nodes runs in the order of the lists, kind after kind, and
// what is summed over samples in their order; only g(i), F(s) and the v(s) of the line search are regrouped
// (FitSystem). So the weights are the same everywhere, bit for bit.

#include <cassert>

#include "learning/fit/fit_system.h"
#include "network/network.h"

namespace quorvane {

Residuals Network::buildPreconditioner(FitSystem& system) {
  assert(&system.lists() == currentLists);
  const std::vector<double> squares = system.accumulateCounts();
  for (std::size_t i = 0; i < squares.size(); ++i) {
    PatternNode& node = *system.nodes()[i];
    node.direction = 0.0;
    node.netCount = 0;
    node.preconditioner = squares[i] != 0.0 ? 1.0 / squares[i] : 0.0;
  }
  system.updateValues();
  const Residuals residuals = system.accumulateGradient();
  const double alpha = system.lineSearch();
  previousNorm = 0.0;
  for (PatternNode* node : system.nodes()) {
    const double step = node->direction * node->preconditioner;
    node->weight = static_cast<float>(static_cast<double>(node->weight) + step * alpha);
    previousNorm += step * node->direction;
    node->previousDirection = node->direction;
    node->direction = 0.0;
  }
  system.updateValues();
  return residuals;
}

Residuals Network::conjugateStep(FitSystem& system, bool reportOnly) {
  assert(&system.lists() == currentLists);
  if (reportOnly) return system.residuals(FitSystem::Caches::filledByPassBefore);
  const Residuals residuals = system.accumulateGradient();
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
  return residuals;
}

float Network::hitPercentage(FitSystem& system) {
  return system.residuals(FitSystem::Caches::cleared).hitPercentage();
}

}  // namespace quorvane

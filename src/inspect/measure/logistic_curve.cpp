#include "inspect/measure/logistic_curve.h"

#include <algorithm>
#include <cmath>

namespace quorvane::inspect {

namespace {

double totalLoss(double steepness, const std::vector<ScoredValue>& scored) {
  double sum = 0.0;
  for (const ScoredValue& one : scored) sum += logLoss(steepness, one);
  return sum;
}

}  // namespace

double logLoss(double steepness, const ScoredValue& scored) {
  // With z = k v, log p = -log(1 + e^-z) and log(1 - p) = log p - z; so that nothing overflows, e is never
  // raised above 0.
  const double z = steepness * scored.value;
  return std::max(z, 0.0) + std::log1p(std::exp(-std::abs(z))) - scored.score * z;
}

// Newton's method on the loss L(k), which is convex:
//
//   L'(k) = sum v (p - s)      L''(k) = sum v^2 p (1 - p)
//
// A step that does not lessen the loss is halved. Where the sign of the value always tells the winner, the
// loss falls for ever, by less and less; the tolerance ends that.
double fitSteepness(const std::vector<ScoredValue>& scored) {
  constexpr int mostSteps = 50;
  constexpr double tolerance = 1e-10;  // of the loss, as a share of it
  double steepness = 0.0;
  double loss = totalLoss(steepness, scored);
  for (int step = 0; step < mostSteps; ++step) {
    double slope = 0.0;
    double curvature = 0.0;
    for (const auto& [value, score] : scored) {
      const double p = expectedScore(steepness, value);
      slope += value * (p - score);
      curvature += value * value * p * (1.0 - p);
    }
    if (!(curvature > 0.0)) break;  // nothing but zeros, or p at its limits
    double change = -slope / curvature;
    double next;
    double nextLoss;
    do {
      next = std::max(steepness + change, 0.0);
      nextLoss = totalLoss(next, scored);
      change /= 2.0;
    } while (nextLoss > loss && std::abs(change) > tolerance * steepness);
    if (!(nextLoss < loss)) break;
    const bool done = loss - nextLoss <= tolerance * loss;
    steepness = next;
    loss = nextLoss;
    if (done) break;
  }
  return steepness;
}

}  // namespace quorvane::inspect

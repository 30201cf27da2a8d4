#ifndef QUORVANE_LEARNING_FIT_RESIDUALS_H_
#define QUORVANE_LEARNING_FIT_RESIDUALS_H_

#include <cmath>
#include <cstddef>

namespace quorvane {

// What a pass over samples finds: how far their values are from their targets, in the unit of targets.
struct Residuals {
  std::size_t samples = 0;
  double squares = 0.0;    // sum of r(s)^2
  double absolutes = 0.0;  // sum of |r(s)|
  std::size_t hits = 0;    // samples with |r(s)| below 1.0

  void add(double residual) {
    ++samples;
    squares += residual * residual;
    absolutes += std::abs(residual);
    if (std::abs(residual) < 1.0) ++hits;
  }

  // f(w); 0.0 of no samples.
  double objective() const { return mean(squares); }
  double meanError() const { return mean(absolutes); }
  // 100 of no samples.
  float hitPercentage() const {
    if (samples == 0) return 100.0F;
    return static_cast<float>(mean(100.0 * static_cast<double>(hits)));
  }

 private:
  double mean(double sum) const { return samples == 0 ? 0.0 : sum / static_cast<double>(samples); }
};

}  // namespace quorvane

#endif  // QUORVANE_LEARNING_FIT_RESIDUALS_H_

#ifndef QUORVANE_INSPECT_COMMON_MEAN_H_
#define QUORVANE_INSPECT_COMMON_MEAN_H_

#include <cstddef>
#include <optional>

namespace quorvane::inspect {

// The mean of numbers that come one by one.
struct Mean {
  double sum = 0.0;
  std::size_t count = 0;

  void add(double number) {
    sum += number;
    ++count;
  }
  void add(const Mean& other) {
    sum += other.sum;
    count += other.count;
  }
  // Nothing where there is nothing to divide by.
  std::optional<double> value() const {
    if (count == 0) return {};
    return sum / static_cast<double>(count);
  }
};

}  // namespace quorvane::inspect

#endif  // QUORVANE_INSPECT_COMMON_MEAN_H_

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

// Of all numbers that came to any of them.
template <typename Means>
Mean meanOf(const Means& means) {
  Mean together;
  for (const Mean& mean : means) together.add(mean);
  return together;
}

}  // namespace quorvane::inspect

#endif  // QUORVANE_INSPECT_COMMON_MEAN_H_

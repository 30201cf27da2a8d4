#ifndef QUORVANE_LEARNING_FIT_WORD_VALUE_H_
#define QUORVANE_LEARNING_FIT_WORD_VALUE_H_

#include <cstdint>

namespace quorvane {

// What a configuration is worth, as evaluate adds it: rounded to 32 bits where it comes out of a cache,
// unrounded where a cache has missed it. Side by side, so that a pass neither converts nor branches.
class alignas(16) WordValue {
 public:
  WordValue() = default;
  explicit WordValue(double sum) : values{static_cast<double>(static_cast<float>(sum)), sum} {}

  double rounded() const { return values[0]; }
  double unrounded() const { return values[1]; }
  // Of `misses`, bit 0 tells whether this word is missed.
  double asFound(std::uint32_t misses) const { return values[misses & 1]; }

 private:
  double values[2] = {};
};

}  // namespace quorvane

#endif  // QUORVANE_LEARNING_FIT_WORD_VALUE_H_

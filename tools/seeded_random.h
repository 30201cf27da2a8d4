#ifndef QUORVANE_TOOLS_SEEDED_RANDOM_H_
#define QUORVANE_TOOLS_SEEDED_RANDOM_H_

#include <cstdint>
#include <random>

namespace quorvane {

// Random numbers that depend on the seed alone: the standard fixes the engine, but leaves its distributions
// to each library.
class SeededRandom {
 public:
  explicit SeededRandom(std::uint64_t seed) : engine(seed) {}

  // 0 to limit - 1; `limit` is at least 1.
  std::int32_t below(std::int32_t limit) {
    const std::uint64_t number = engine() >> 32;
    return static_cast<std::int32_t>(number * static_cast<std::uint64_t>(limit) >> 32);
  }

 private:
  std::mt19937_64 engine;
};

}  // namespace quorvane

#endif  // QUORVANE_TOOLS_SEEDED_RANDOM_H_

#ifndef QUORVANE_PLAY_PROTOCOL_TIME_CONTROL_H_
#define QUORVANE_PLAY_PROTOCOL_TIME_CONTROL_H_

#include <chrono>
#include <cstdint>
#include <optional>

namespace quorvane::play {

using Milliseconds = std::chrono::duration<std::int64_t, std::milli>;

// What the clock of a game allows the side to move.
struct Allowance {
  std::optional<Milliseconds> left;
  Milliseconds increment{0};
  std::int32_t movesToGo = 0;  // until more time comes; 0 if it never does
  std::optional<Milliseconds> forThisMove;
};

// How long a move may take: no new depth is begun behind `soft`, and the search ends at `hard`.
struct TimeLimits {
  Milliseconds soft;
  Milliseconds hard;
};

// Nothing if the clock sets no limits. `overhead` is lost between the program and whoever keeps the clock.
std::optional<TimeLimits> timeLimits(const Allowance& allowance, Milliseconds overhead);

}  // namespace quorvane::play

#endif  // QUORVANE_PLAY_PROTOCOL_TIME_CONTROL_H_

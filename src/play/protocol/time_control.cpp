#include "play/protocol/time_control.h"

#include <algorithm>

namespace quorvane::play {

std::optional<TimeLimits> timeLimits(const Allowance& allowance, Milliseconds overhead) {
  constexpr Milliseconds least{1};
  if (allowance.forThisMove) {
    const Milliseconds given = *allowance.forThisMove;
    const Milliseconds all = std::max(given - std::min(overhead, given / 20), least);
    return TimeLimits{all, all};
  }
  if (!allowance.left) return {};
  // A game is expected to go on for some 25 moves at any time.
  constexpr std::int32_t expectedMoves = 25;
  const bool comesMore = allowance.movesToGo > 0;
  const std::int32_t moves = comesMore ? std::min(allowance.movesToGo, expectedMoves) : expectedMoves;
  const Milliseconds left = std::max(*allowance.left - overhead * std::min(moves, 2), least);
  const Milliseconds share = left / moves + allowance.increment * 3 / 4;
  // What is left pays for the moves behind this one too, unless more comes at once.
  const Milliseconds most = moves == 1 ? left : left / 3;
  const Milliseconds soft = std::clamp(share * 6 / 10, least, std::max(most, least));
  const Milliseconds hard = std::clamp(share * 3, least, std::max(most, least));
  return TimeLimits{soft, hard};
}

}  // namespace quorvane::play

#ifndef QUORVANE_PLAY_SEARCH_DEVICES_H_
#define QUORVANE_PLAY_SEARCH_DEVICES_H_

#include <cstdint>
#include <string_view>
#include <utility>

namespace quorvane::play {

// What makes the search find more in as many nodes. Each can be done without, to measure what it brings.
enum Device : std::uint32_t {
  aspirationWindows = 1U << 0,
  zeroWindows = 1U << 1,
  transpositions = 1U << 2,
  lateMoveReductions = 1U << 3,
  moveHistory = 1U << 4,
  staticExchanges = 1U << 5,
  futility = 1U << 6,
  lateMovePruning = 1U << 7,
  quiescence = 1U << 8
};
inline constexpr std::uint32_t allDevices = (1U << 9) - 1;

inline constexpr std::pair<std::string_view, Device> deviceNames[] = {
    {"quiescence", quiescence},
    {"transposition-table", transpositions},
    {"zero-windows", zeroWindows},
    {"aspiration-windows", aspirationWindows},
    {"late-move-reductions", lateMoveReductions},
    {"late-move-pruning", lateMovePruning},
    {"futility", futility},
    {"history", moveHistory},
    {"static-exchanges", staticExchanges}};

}  // namespace quorvane::play

#endif  // QUORVANE_PLAY_SEARCH_DEVICES_H_

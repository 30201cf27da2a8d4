#include "evaluator/learned_network.h"

#include <algorithm>

namespace quorvane::evaluator {

LearnedNetwork::LearnedNetwork(const NetworkTable& table) {
  for (PositionType type = 0; type < positionTypeCount; ++type) {
    for (std::int32_t kind = 0; kind < pieceKindCount; ++kind)
      tries[type][kind] = PatternTrie(table[type][kind]);
  }
}

bool LearnedNetwork::knows(PositionType type) const {
  return std::ranges::any_of(tries[type], &PatternTrie::hasPatterns);
}

}  // namespace quorvane::evaluator

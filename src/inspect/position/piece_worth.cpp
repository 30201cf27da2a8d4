#include "inspect/position/piece_worth.h"

#include "network/network_table.h"

namespace quorvane::inspect {

double PieceWorths::of(PositionType type, PieceKind kind, ConfigurationWord word) {
  CacheEntry& entry = caches[type][kind].entryFor(word);
  if (entry.word != word) {
    double sum = 0.0;
    forEachFiringNode(networkTable[type][kind], word,
                      [&](const PatternNode& node) { sum += static_cast<double>(node.weight); });
    entry = {word, static_cast<float>(sum)};
  }
  return static_cast<double>(entry.value);
}

}  // namespace quorvane::inspect

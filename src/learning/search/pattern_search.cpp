#include <cassert>
#include <iostream>

#include "configurations/configuration_word.h"
#include "learning/learner.h"
#include "learning/search/drawn_pieces.h"

namespace quorvane {

namespace {

constexpr std::int32_t frequencyThreshold = 15;  // sum of the absolute net counts of a frequent pattern
constexpr std::int32_t mostTries = 1000;

}  // namespace

void Learner::searchAllPatterns() {
  for (PositionType type = firstLearnedType; type <= lastPositionType; ++type) {
    std::cout << "Number of positions of type " << type << ": " << sampleSets[type].size() << "\n";
    use(type);
    searchPatterns(searchDepth);
  }
}

void Learner::searchPatterns(std::int32_t depth) {
  const auto drawn = drawPieces(*currentSet, mostTries);
  for (std::int32_t number = 0; number < pieceKindCount; ++number) {
    const auto kind = static_cast<PieceKind>(number);
    network.clearNodeList(kind);
    std::int32_t total = 0;
    for (std::int32_t bit = 0; bit < configurationBits; ++bit)
      total += searchNode(kind, drawn[kind], 0, bit, depth);
    std::cout << "Configuration count for piece " << number << ": " << total << "\n";
  }
  std::cout << "\n";
}

std::int32_t Learner::searchNode(PieceKind kind, const DrawnPieces& parentPieces,
                                 ConfigurationWord parentMask, std::int32_t bit, std::int32_t depth) {
  assert(parentMask < configurationBit(bit) && depth >= 0 && depth <= searchDepth);
  if (!parentPieces.isFrequent(frequencyThreshold, configurationBit(bit))) return 0;
  const ConfigurationWord mask = parentMask | configurationBit(bit);
  const std::int32_t index = network.appendNode(kind);
  network.nodeAt(kind, index).mask = mask;
  std::int32_t count = 1;
  ConfigurationWord childBits = 0;
  if (depth > 0) {
    const DrawnPieces pieces = parentPieces.with(configurationBit(bit));
    for (std::int32_t childBit = bit + 1; childBit < configurationBits; ++childBit) {
      const std::int32_t added = searchNode(kind, pieces, mask, childBit, depth - 1);
      if (added == 0) continue;
      count += added;
      childBits |= configurationBit(childBit);
    }
  }
  PatternNode& node = network.nodeAt(kind, index);  // the list may have moved
  node.childBits = childBits;
  node.skip = count;
  return count;
}

}  // namespace quorvane

#include <cstdlib>
#include <iostream>

#include "configurations/configuration_word.h"
#include "learning/learner.h"

namespace quorvane {

namespace {

constexpr std::int32_t searchDepth = 2;
constexpr std::int32_t frequencyThreshold = 15;
constexpr std::int32_t mostTries = 1000;

// Draws the same sequence of samples for every test: a multiplicative generator modulo 2^16.
class SamplePicker {
 public:
  std::size_t draw(std::size_t sampleCount) {
    const std::uint32_t high = next();
    const std::uint32_t low = next();
    return ((high << 16) | low) % sampleCount;
  }

 private:
  std::uint32_t next() { return state = state * 239 % 65536; }

  std::uint32_t state = 5;
};

}  // namespace

void Learner::searchAllPatterns() {
  for (PositionType type = firstLearnedType; type <= lastPositionType; ++type) {
    std::cout << "Number of positions of type " << type << ": " << sampleSets[type].size() << "\n";
    currentSet = &sampleSets[type];
    network.classifyPosition(type, true);
    searchPatterns(searchDepth);
  }
}

void Learner::searchPatterns(std::int32_t depth) {
  for (std::int32_t number = 0; number < pieceKindCount; ++number) {
    const auto kind = static_cast<PieceKind>(number);
    network.clearNodeList(kind);
    std::int32_t total = 0;
    for (std::int32_t bit = 0; bit < configurationBits; ++bit) {
      total += searchNode(kind, configurationBit(bit), bit + 1, depth);
    }
    std::cout << "Configuration count for piece " << number << ": " << total << "\n";
  }
  std::cout << "\n";
}

std::int32_t Learner::searchNode(PieceKind kind, ConfigurationWord mask, std::int32_t nextBit,
                                 std::int32_t depth) {
  if (!isFrequent(kind, mask, frequencyThreshold, mostTries)) return 0;
  const std::int32_t index = network.appendNode(kind);
  network.nodeAt(kind, index).mask = mask;
  std::int32_t count = 1;
  ConfigurationWord childBits = 0;
  if (depth > 0) {
    for (std::int32_t bit = nextBit; bit < configurationBits; ++bit) {
      const std::int32_t added = searchNode(kind, mask | configurationBit(bit), bit + 1, depth - 1);
      if (added == 0) continue;
      count += added;
      childBits |= configurationBit(bit);
    }
  }
  PatternNode& node = network.nodeAt(kind, index);  // the list may have moved
  node.childBits = childBits;
  node.skip = count;
  return count;
}

bool Learner::isFrequent(PieceKind kind, ConfigurationWord mask, std::int32_t threshold,
                         std::int32_t tries) const {
  if (currentSet->empty()) return false;
  SamplePicker picker;
  std::int32_t sum = 0;
  for (std::int32_t tried = 0; tried < tries; ++tried) {
    const SampleSet::View sample = currentSet->view(picker.draw(currentSet->size()));
    const auto firings = [&](std::span<const std::uint32_t> list) {
      std::int32_t count = 0;
      for (const std::uint32_t number : list) {
        const PieceConfiguration& piece = currentSet->configurations()[number];
        if (piece.kind == kind && (piece.word & mask) == mask) ++count;
      }
      return count;
    };
    sum += std::abs(firings(sample.ownList) - firings(sample.opposingList));
    if (sum >= threshold) return true;
  }
  return false;
}

}  // namespace quorvane

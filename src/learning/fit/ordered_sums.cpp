#include "learning/fit/ordered_sums.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstdint>
#include <limits>
#include <vector>

namespace quorvane {

namespace {

// The exponent of the lowest bit that is set in the weight: the weight is a whole multiple of two to this
// power.
int lowestBitExponent(float weight) {
  constexpr int fractionBits = std::numeric_limits<float>::digits - 1;
  constexpr int exponentBias = std::numeric_limits<float>::max_exponent - 1;
  const auto bits = std::bit_cast<std::uint32_t>(weight);
  const std::uint32_t fraction = bits & ((1U << fractionBits) - 1);
  const int exponent = static_cast<int>((bits >> fractionBits) & 0xff);
  const bool subnormal = exponent == 0;
  const std::uint32_t digits = subnormal ? fraction : fraction | (1U << fractionBits);
  return (subnormal ? 1 : exponent) - exponentBias - fractionBits + std::countr_zero(digits);
}

// The masks of the nodes that stand in the way of exact sums.
//
// As long as all terms are whole multiples of some power of two, and no partial sum exceeds 2^53 times that
// power, no addition of doubles rounds, and the order does not matter. No partial sum exceeds the sum of the
// absolute weights, which gives the power; only a node whose weight is no multiple of it can make an addition
// round.
std::vector<ConfigurationWord> findRoundingMasks(const NodeList& list) {
  double absolutes = 0.0;
  for (const PatternNode& node : list) absolutes += std::abs(static_cast<double>(node.weight));
  std::vector<ConfigurationWord> masks;
  if (absolutes == 0.0) return masks;
  const bool finite = std::isfinite(absolutes);
  // One power to spare for the rounding of `absolutes` itself, and one from ilogb, which rounds down.
  const int gridExponent = finite ? std::ilogb(absolutes) + 2 - std::numeric_limits<double>::digits : 0;
  for (const PatternNode& node : list) {
    if (node.weight == 0.0F) continue;
    if (!finite || lowestBitExponent(node.weight) < gridExponent) masks.push_back(node.mask);
  }
  return masks;
}

double walk(const NodeList& list, ConfigurationWord word) {
  double sum = 0.0;
  forEachFiringNode(list, word, [&](const PatternNode& node) { sum += static_cast<double>(node.weight); });
  return sum;
}

}  // namespace

void sumWeightsInOrder(const NodeList& list, std::span<const PlacedWord> words, const FiringMatrix& matrix,
                       std::span<WordValue> byPlace) {
  std::vector<double> weights;
  for (const PatternNode& node : list) weights.push_back(static_cast<double>(node.weight));
  matrix.sumNodes(weights, [&](std::uint32_t place, double sum) { byPlace[place] = WordValue(sum); });
  const std::vector<ConfigurationWord> roundingMasks = findRoundingMasks(list);
  if (roundingMasks.empty()) return;
  for (const PlacedWord& placed : words) {
    const auto fires = [&](ConfigurationWord mask) { return (placed.word & mask) == mask; };
    if (std::ranges::any_of(roundingMasks, fires)) byPlace[placed.place] = WordValue(walk(list, placed.word));
  }
}

}  // namespace quorvane

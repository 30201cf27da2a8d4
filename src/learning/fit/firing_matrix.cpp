#include "learning/fit/firing_matrix.h"

#include <algorithm>
#include <bit>
#include <cassert>
#include <limits>

#include "configurations/configuration_word.h"
#include "learning/fit/prefetch.h"

namespace quorvane {

namespace {

constexpr std::int32_t lowHalfBits = FiringMatrix::lowHalfBits;
constexpr ConfigurationWord lowBits = (ConfigurationWord{1} << lowHalfBits) - 1;

constexpr ConfigurationWord lowOf(ConfigurationWord word) {
  return word & lowBits;
}
constexpr ConfigurationWord highOf(ConfigurationWord word) {
  return word & ~lowBits;
}
constexpr bool contains(ConfigurationWord word, ConfigurationWord part) {
  return (word & part) == part;
}

constexpr ConfigurationWord withoutTopBit(ConfigurationWord word) {
  return word & ~std::bit_floor(word);
}

// Turns the low half round, its lowest bit foremost: in the ascending order of such numbers each low half
// stands before those that it begins, and these follow it.
constexpr ConfigurationWord sortKey(ConfigurationWord word) {
  ConfigurationWord turned = 0;
  for (std::int32_t bit = 0; bit < lowHalfBits; ++bit)
    turned |= ((word >> bit) & 1) << (lowHalfBits - 1 - bit);
  return highOf(word) | turned;
}

// The different values of `valueOf` over some items, in ascending order.
template <typename Items, typename Value>
std::vector<ConfigurationWord> differentValues(const Items& items, Value valueOf) {
  std::vector<ConfigurationWord> values;
  values.reserve(items.size());
  for (const auto& item : items) values.push_back(valueOf(item));
  std::sort(values.begin(), values.end());
  values.erase(std::unique(values.begin(), values.end()), values.end());
  return values;
}

std::size_t indexIn(const std::vector<ConfigurationWord>& values, ConfigurationWord value) {
  return static_cast<std::size_t>(std::lower_bound(values.begin(), values.end(), value) - values.begin());
}

}  // namespace

void FiringMatrix::sort(std::vector<PlacedWord>& words) {
  struct Keyed {
    ConfigurationWord key;
    PlacedWord word;
  };
  std::vector<Keyed> keyed;
  keyed.reserve(words.size());
  for (const PlacedWord& word : words) keyed.push_back({sortKey(word.word), word});
  std::ranges::sort(keyed, {}, &Keyed::key);
  std::ranges::transform(keyed, words.begin(), &Keyed::word);
}

FiringMatrix::FiringMatrix(const NodeList& list, std::span<const PlacedWord> words, std::uint32_t noWord)
    : sparePlace(noWord) {
  assert(list.size() < std::numeric_limits<Index>::max());
  assert(std::ranges::none_of(words, [&](const PlacedWord& word) { return word.place == noWord; }));
  assert(std::ranges::is_sorted(words, {}, [](const PlacedWord& word) { return sortKey(word.word); }));
  const auto lowParts = differentValues(list, [](const PatternNode& node) { return lowOf(node.mask); });
  const auto highParts = differentValues(list, [](const PatternNode& node) { return highOf(node.mask); });
  lowPartCount = lowParts.size();

  std::vector<bool> lowPartIsUsed(lowPartCount);  // by a node with a high part
  std::vector<std::vector<Node>> nodesByHighPart(highParts.size());
  for (std::size_t index = 0; index < list.size(); ++index) {
    const ConfigurationWord mask = list[index].mask;
    if (highOf(mask) == 0) continue;
    const std::size_t lowPart = indexIn(lowParts, lowOf(mask));
    nodesByHighPart[indexIn(highParts, highOf(mask))].push_back(
        {static_cast<Index>(index), static_cast<Index>(lowPart)});
    lowPartIsUsed[lowPart] = true;
  }
  for (const std::vector<Node>& nodes : nodesByHighPart) {
    nodesOfHighPart.open().insert(nodesOfHighPart.open().end(), nodes.begin(), nodes.end());
    nodesOfHighPart.close();
  }

  enterPrefixes(words);
  enterParts(list, lowParts, lowPartIsUsed);
  enterWords(words);
  for (const ConfigurationWord half :
       differentValues(words, [](const PlacedWord& word) { return highOf(word.word); })) {
    for (std::size_t part = 0; part < highParts.size(); ++part) {
      const bool counts = highParts[part] != 0 && contains(half, highParts[part]);
      if (counts) highPartsOfHighHalf.open().push_back(static_cast<Index>(part));
    }
    highPartsOfHighHalf.close();
  }
}

void FiringMatrix::enterPrefixes(std::span<const PlacedWord> words) {
  std::vector<bool> occurs(lowBits + 1);
  for (const PlacedWord& word : words) {
    for (ConfigurationWord low = lowOf(word.word); !occurs[low]; low = withoutTopBit(low)) occurs[low] = true;
  }
  for (ConfigurationWord low = 0; low <= lowBits; ++low) {
    if (!occurs[low]) continue;
    parents.push_back(static_cast<std::uint32_t>(indexIn(lowHalves, withoutTopBit(low))));
    lowHalves.push_back(low);
  }
}

void FiringMatrix::enterParts(const NodeList& list, const std::vector<ConfigurationWord>& lowParts,
                              const std::vector<bool>& lowPartIsUsed) {
  std::vector<Index> plainNodes;  // without a high part
  for (std::size_t index = 0; index < list.size(); ++index) {
    if (highOf(list[index].mask) == 0) plainNodes.push_back(static_cast<Index>(index));
  }
  for (const ConfigurationWord low : lowHalves) {
    const ConfigurationWord topBit = std::bit_floor(low);
    const auto isNew = [&](ConfigurationWord part) { return contains(low, part) && contains(part, topBit); };
    const std::size_t first = partsOfPrefixes.size();
    for (std::size_t part = 0; part < lowPartCount; ++part) {
      if (lowPartIsUsed[part] && isNew(lowParts[part])) partsOfPrefixes.push_back(static_cast<Index>(part));
    }
    while (partsOfPrefixes.size() % quad != 0) partsOfPrefixes.push_back(static_cast<Index>(lowPartCount));
    prefixes.push_back({static_cast<std::uint32_t>(first),
                        static_cast<std::uint8_t>((partsOfPrefixes.size() - first) / quad),
                        static_cast<std::uint8_t>(std::popcount(low))});
    for (const Index node : plainNodes) {
      if (isNew(list[node].mask)) nodesOfPrefix.open().push_back(node);
    }
    nodesOfPrefix.close();
  }
}

void FiringMatrix::enterWords(std::span<const PlacedWord> words) {
  std::vector<std::uint32_t> indexOfLowHalf(lowBits + 1);
  for (std::uint32_t index = 0; index < lowHalves.size(); ++index) indexOfLowHalf[lowHalves[index]] = index;
  constexpr ConfigurationWord none = lowBits + 1;
  ConfigurationWord last = none;  // the low half entered last, of this high half
  for (std::size_t i = 0; i < words.size(); ++i) {
    const ConfigurationWord low = lowOf(words[i].word);
    // What this word begins with and the last one does not, the shortest first.
    ConfigurationWord prefix = 0;
    for (ConfigurationWord rest = low; true; rest &= rest - 1) {
      const ConfigurationWord sameLength = std::bit_ceil(prefix + 1) - 1;
      const bool entered = last != none && (last & sameLength) == prefix;
      if (!entered) {
        const std::uint32_t index = indexOfLowHalf[prefix];
        entriesOfHighHalf.open().push_back(
            {prefix == low ? words[i].place : sparePlace, index, prefixes[index]});
      }
      if (rest == 0) break;
      prefix |= rest & ~(rest - 1);
    }
    const bool ends = i + 1 == words.size() || highOf(words[i + 1].word) != highOf(words[i].word);
    if (ends) entriesOfHighHalf.close();
    last = ends ? none : low;
  }
}

void FiringMatrix::sumHighParts(std::size_t highHalf, std::span<const double> byNode,
                                std::vector<double>& byLowPart) const {
  std::fill(byLowPart.begin(), byLowPart.end(), 0.0);
  for (const Index part : highPartsOfHighHalf[highHalf]) {
    for (const Node& node : nodesOfHighPart[part]) byLowPart[node.lowPart] += byNode[node.index];
  }
}

void FiringMatrix::addWords(std::span<const double> byPlace, std::span<double> byNode) const {
  assert(lowHalves.empty() || byPlace[sparePlace] == 0.0);
  std::vector<double> ofPrefix(lowHalves.size());
  std::vector<double> byLowPart(lowPartCount + 1);
  double belowDepth[lowHalfBits + 2] = {};  // what the prefixes of a depth have handed down to their parent
  for (std::size_t highHalf = 0; highHalf < entriesOfHighHalf.size(); ++highHalf) {
    std::fill(byLowPart.begin(), byLowPart.end(), 0.0);
    const std::span<const Entry> entries = entriesOfHighHalf[highHalf];
    for (std::size_t i = entries.size(); i-- > 0;) {
      const Entry& entry = entries[i];
      double* const below = belowDepth + entry.prefix.depth;
      double sum = below[1];
      below[1] = 0.0;
      prefetch(&byPlace[entries[i < lookAhead ? 0 : i - lookAhead].place]);
      const double amount = byPlace[entry.place];
      ofPrefix[entry.prefixIndex] += amount;
      sum += amount;
      const Index* part = partsOfPrefixes.data() + entry.prefix.firstPart;
      for (std::uint8_t quads = entry.prefix.quads; quads > 0; --quads, part += quad) {
        for (std::size_t i4 = 0; i4 < quad; ++i4) byLowPart[part[i4]] += sum;
      }
      below[0] += sum;
    }
    belowDepth[0] = 0.0;
    for (const Index part : highPartsOfHighHalf[highHalf]) {
      for (const Node& node : nodesOfHighPart[part]) byNode[node.index] += byLowPart[node.lowPart];
    }
  }
  for (std::size_t prefix = lowHalves.size(); prefix-- > 0;) {
    for (const Index node : nodesOfPrefix[prefix]) byNode[node] += ofPrefix[prefix];
    if (prefix != 0) ofPrefix[parents[prefix]] += ofPrefix[prefix];
  }
}

}  // namespace quorvane

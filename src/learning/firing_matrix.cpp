#include "learning/firing_matrix.h"

#include <algorithm>
#include <numeric>

namespace quorvane {

namespace {

constexpr ConfigurationWord lowBits = (ConfigurationWord{1} << 17) - 1;

constexpr ConfigurationWord lowOf(ConfigurationWord word) {
  return word & lowBits;
}
constexpr ConfigurationWord highOf(ConfigurationWord word) {
  return word & ~lowBits;
}
constexpr bool contains(ConfigurationWord word, ConfigurationWord part) {
  return (word & part) == part;
}

// The different values of `valueOf` over some items, in ascending order and so numbered.
template <typename Items, typename Value>
std::vector<ConfigurationWord> differentValues(const Items& items, Value valueOf) {
  std::vector<ConfigurationWord> values;
  values.reserve(items.size());
  for (const auto& item : items) values.push_back(valueOf(item));
  std::sort(values.begin(), values.end());
  values.erase(std::unique(values.begin(), values.end()), values.end());
  return values;
}

std::size_t numberIn(const std::vector<ConfigurationWord>& values, ConfigurationWord value) {
  return static_cast<std::size_t>(std::lower_bound(values.begin(), values.end(), value) - values.begin());
}

// Stable counting sort: groups the items by `keyOf`, from 0 on, and gives where each group ends.
template <typename Item, typename Key>
std::vector<std::size_t> groupBy(std::vector<Item>& items, std::size_t keyCount, Key keyOf) {
  std::vector<std::size_t> ends(keyCount + 1);
  for (const Item& item : items) ++ends[keyOf(item) + 1];
  std::partial_sum(ends.begin(), ends.end(), ends.begin());
  std::vector<Item> grouped(items.size());
  for (const Item& item : items) grouped[ends[keyOf(item)]++] = item;
  items = std::move(grouped);
  ends.pop_back();
  return ends;
}

}  // namespace

FiringMatrix::FiringMatrix(const NodeList& list, std::span<const ConfigurationWord> allWords) {
  const auto lowOfMask = [](const PatternNode& node) { return lowOf(node.mask); };
  const auto highOfMask = [](const PatternNode& node) { return highOf(node.mask); };
  const auto lowParts = differentValues(list, lowOfMask);
  const auto highParts = differentValues(list, highOfMask);
  const auto lowHalves = differentValues(allWords, lowOf);
  const auto highHalves = differentValues(allWords, highOf);

  // Nodes without a high part are looked at once for each low half, all others by their high part.
  std::vector<bool> lowPartIsUsed(lowParts.size());
  std::vector<Index> plainNodes;
  for (std::size_t number = 0; number < list.size(); ++number) {
    const std::size_t lowPart = numberIn(lowParts, lowOfMask(list[number]));
    if (highOfMask(list[number]) == 0) {
      plainNodes.push_back(static_cast<Index>(number));
    } else {
      nodes.push_back({static_cast<Index>(number), static_cast<Index>(lowPart)});
      lowPartIsUsed[lowPart] = true;
    }
  }
  nodeEnds = groupBy(nodes, highParts.size(),
                     [&](const Node& node) { return numberIn(highParts, highOfMask(list[node.number])); });

  lowPartCount = lowParts.size();
  for (const ConfigurationWord half : lowHalves) {
    for (std::size_t part = 0; part < lowParts.size(); ++part) {
      if (contains(half, lowParts[part]) && lowPartIsUsed[part]) lowPartsOfLowHalf.add(part);
    }
    lowPartsOfLowHalf.closeRow();
    for (const Index node : plainNodes) {
      if (contains(half, list[node].mask)) nodesOfLowHalf.add(node);
    }
    nodesOfLowHalf.closeRow();
  }
  for (const ConfigurationWord half : highHalves) {
    for (std::size_t part = 0; part < highParts.size(); ++part) {
      if (contains(half, highParts[part]) && highParts[part] != 0) highPartsOfHighHalf.add(part);
    }
    highPartsOfHighHalf.closeRow();
  }

  for (std::size_t number = 0; number < allWords.size(); ++number) {
    const std::size_t lowHalf = numberIn(lowHalves, lowOf(allWords[number]));
    words.push_back({static_cast<std::uint32_t>(number), static_cast<std::uint32_t>(lowHalf)});
  }
  // Within a high half, words whose rows are equally long follow each other: such loops are predicted.
  groupBy(words, lowHalves.size(), [](const Word& word) { return std::size_t{word.lowHalf}; });
  groupBy(words, lowPartCount + 1, [&](const Word& word) { return lowPartsOfLowHalf[word.lowHalf].size(); });
  wordEnds = groupBy(words, highHalves.size(),
                     [&](const Word& word) { return numberIn(highHalves, highOf(allWords[word.number])); });
}

void FiringMatrix::sumNodes(std::span<const double> byNode, std::span<double> byWord) const {
  std::vector<double> byLowHalf(nodesOfLowHalf.size());
  for (std::size_t half = 0; half < byLowHalf.size(); ++half) {
    for (const Index node : nodesOfLowHalf[half]) byLowHalf[half] += byNode[node];
  }
  std::vector<double> byLowPart(lowPartCount);
  const Word* word = words.data();
  for (std::size_t highHalf = 0; highHalf < wordEnds.size(); ++highHalf) {
    std::fill(byLowPart.begin(), byLowPart.end(), 0.0);
    for (const Index part : highPartsOfHighHalf[highHalf]) {
      for (std::size_t i = part == 0 ? 0 : nodeEnds[part - 1]; i < nodeEnds[part]; ++i) {
        byLowPart[nodes[i].lowPart] += byNode[nodes[i].number];
      }
    }
    for (const Word* const end = words.data() + wordEnds[highHalf]; word != end; ++word) {
      double sum = byLowHalf[word->lowHalf];
      for (const Index part : lowPartsOfLowHalf[word->lowHalf]) sum += byLowPart[part];
      byWord[word->number] = sum;
    }
  }
}

void FiringMatrix::addWords(std::span<const double> byWord, std::span<double> byNode) const {
  std::vector<double> byLowHalf(nodesOfLowHalf.size());
  std::vector<double> byLowPart(lowPartCount);
  const Word* word = words.data();
  for (std::size_t highHalf = 0; highHalf < wordEnds.size(); ++highHalf) {
    std::fill(byLowPart.begin(), byLowPart.end(), 0.0);
    for (const Word* const end = words.data() + wordEnds[highHalf]; word != end; ++word) {
      const double amount = byWord[word->number];
      byLowHalf[word->lowHalf] += amount;
      for (const Index part : lowPartsOfLowHalf[word->lowHalf]) byLowPart[part] += amount;
    }
    for (const Index part : highPartsOfHighHalf[highHalf]) {
      for (std::size_t i = part == 0 ? 0 : nodeEnds[part - 1]; i < nodeEnds[part]; ++i) {
        byNode[nodes[i].number] += byLowPart[nodes[i].lowPart];
      }
    }
  }
  for (std::size_t half = 0; half < byLowHalf.size(); ++half) {
    for (const Index node : nodesOfLowHalf[half]) byNode[node] += byLowHalf[half];
  }
}

}  // namespace quorvane

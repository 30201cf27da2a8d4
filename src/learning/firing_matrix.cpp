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

// The different values among some, numbered: in ascending order at first.
class Values {
 public:
  template <typename Source, typename Value>
  Values(const Source& source, Value valueOf) {
    for (const auto& item : source) values.push_back(valueOf(item));
    std::sort(values.begin(), values.end());
    values.erase(std::unique(values.begin(), values.end()), values.end());
    sorted = values;
    numbers.resize(values.size());
    std::iota(numbers.begin(), numbers.end(), std::size_t{0});
  }

  // Numbers the values in ascending order of their keys instead.
  template <typename Key>
  void orderBy(Key keyOf) {
    std::vector<std::size_t> keys;
    for (const ConfigurationWord value : sorted) keys.push_back(keyOf(value));
    std::vector<std::size_t> order(sorted.size());
    std::iota(order.begin(), order.end(), std::size_t{0});
    std::stable_sort(order.begin(), order.end(),
                     [&](std::size_t a, std::size_t b) { return keys[a] < keys[b]; });
    for (std::size_t number = 0; number < order.size(); ++number) {
      numbers[order[number]] = number;
      values[number] = sorted[order[number]];
    }
  }

  std::size_t indexOf(ConfigurationWord value) const {
    return numbers[static_cast<std::size_t>(std::lower_bound(sorted.begin(), sorted.end(), value) -
                                            sorted.begin())];
  }
  std::size_t size() const { return values.size(); }
  ConfigurationWord operator[](std::size_t index) const { return values[index]; }
  auto begin() const { return values.begin(); }
  auto end() const { return values.end(); }

 private:
  std::vector<ConfigurationWord> sorted;
  std::vector<std::size_t> numbers;  // of the sorted values
  std::vector<ConfigurationWord> values;
};

// Counting sort: the items that `keyOf` puts under 0, 1, ... one group after the other, in their order within
// a group.
template <typename Item, typename Key>
std::vector<std::size_t> groupBy(std::vector<Item>& items, std::size_t keys, Key keyOf) {
  std::vector<std::size_t> ends(keys);
  for (std::size_t i = 0; i < items.size(); ++i) ++ends[keyOf(i)];
  std::size_t end = 0;
  for (std::size_t& count : ends) {
    const std::size_t begin = end;
    end += count;
    count = begin;
  }
  std::vector<Item> grouped(items.size());
  for (std::size_t i = 0; i < items.size(); ++i) grouped[ends[keyOf(i)]++] = items[i];
  items = std::move(grouped);
  return ends;
}

}  // namespace

FiringMatrix::FiringMatrix(const NodeList& list, std::span<const ConfigurationWord> allWords) {
  const auto lowOfMask = [](const PatternNode& node) { return lowOf(node.mask); };
  const auto highOfMask = [](const PatternNode& node) { return highOf(node.mask); };
  const Values lowParts(list, lowOfMask);
  const Values highParts(list, highOfMask);
  Values lowHalves(allWords, lowOf);
  const Values highHalves(allWords, highOf);

  // Nodes without a high part are looked at once for each low half, all others by their high part.
  std::vector<Node> plainNodes;
  std::vector<std::size_t> highPartOfNode;
  std::vector<bool> lowPartIsUsed(lowParts.size());
  for (std::size_t number = 0; number < list.size(); ++number) {
    const std::size_t lowPart = lowParts.indexOf(lowOfMask(list[number]));
    const Node node{static_cast<Index>(number), static_cast<Index>(lowPart)};
    if (highOfMask(list[number]) == 0) {
      plainNodes.push_back(node);
    } else {
      nodes.push_back(node);
      highPartOfNode.push_back(highParts.indexOf(highOfMask(list[number])));
      lowPartIsUsed[lowPart] = true;
    }
  }
  nodeEnds = groupBy(nodes, highParts.size(), [&](std::size_t i) { return highPartOfNode[i]; });

  lowPartCount = lowParts.size();
  const auto forEachUsedPart = [&](ConfigurationWord half, auto visit) {
    for (std::size_t part = 0; part < lowParts.size(); ++part) {
      if (contains(half, lowParts[part]) && lowPartIsUsed[part]) visit(part);
    }
  };
  lowHalves.orderBy([&](ConfigurationWord half) {
    std::size_t count = 0;
    forEachUsedPart(half, [&](std::size_t) { ++count; });
    return count;
  });
  for (const ConfigurationWord half : lowHalves) {
    forEachUsedPart(half, [&](std::size_t part) { lowPartsOfLowHalf.add(part); });
    lowPartsOfLowHalf.closeRow();
    for (const Node& node : plainNodes) {
      if (contains(half, list[node.number].mask)) nodesOfLowHalf.add(node.number);
    }
    nodesOfLowHalf.closeRow();
  }
  for (const ConfigurationWord half : highHalves) {
    for (std::size_t part = 0; part < highParts.size(); ++part) {
      if (highParts[part] != 0 && contains(half, highParts[part])) highPartsOfHighHalf.add(part);
    }
    highPartsOfHighHalf.closeRow();
  }

  for (std::size_t number = 0; number < allWords.size(); ++number) {
    const std::size_t lowHalf = lowHalves.indexOf(lowOf(allWords[number]));
    words.push_back({static_cast<std::uint32_t>(number), static_cast<std::uint32_t>(lowHalf)});
  }
  groupBy(words, lowHalves.size(), [&](std::size_t i) { return words[i].lowHalf; });
  wordEnds = groupBy(words, highHalves.size(),
                     [&](std::size_t i) { return highHalves.indexOf(highOf(allWords[words[i].number])); });
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

#ifndef QUORVANE_LEARNING_FIT_FIRING_MATRIX_H_
#define QUORVANE_LEARNING_FIT_FIRING_MATRIX_H_

#include <cstdint>
#include <span>
#include <vector>

#include "board/rows.h"
#include "network/pattern_node.h"

namespace quorvane {

// A word, and its place in the arrays that the products below read and write.
struct PlacedWord {
  ConfigurationWord word;
  std::uint32_t place;
};

// The patterns of one list against many words: the matrix a(word, node) that is 1 where the node fires on the
// word and 0 elsewhere, with its two products.
//
// A word of 10 bits fires up to 175 patterns of up to three bits. So the matrix is not stored, but factored:
// word and mask are cut into a low half, where a piece's circumstances are, and a high half, where its place
// is. A node fires where both halves of its mask are contained. Few high halves occur among the words; for
// each of them, the nodes whose high half it contains are summed up once by their low part, after which a
// word adds up no more than the sums of the low parts that its own low half contains. Words of one high half
// form a tree: what a low half contains without its topmost bit, it shares with the words that begin with the
// same bits, so that only the low parts with that bit are left to add.
class FiringMatrix {
 public:
  static constexpr std::int32_t lowHalfBits = 17;

  // The order in which the products run through the words: what stands in this order is reached one
  // after the other.
  static void sort(std::vector<PlacedWord>& words);

  // Neither the list nor the words, different ones in the order above, are needed afterwards. Patterns have
  // up to three bits, of which there are no more than 5,488. `noWord` is a place that no word has.
  FiringMatrix(const NodeList& list, std::span<const PlacedWord> words, std::uint32_t noWord);

  // Calls store(place, sum) for every word, sum being that of byNode[node] over the nodes that fire on it,
  // regrouped. What it is called with for `noWord` means nothing.
  template <typename Store>
  void sumNodes(std::span<const double> byNode, Store store) const;

  // byNode[n] += sum over the words on which node n fires of byPlace[word], regrouped. REQUIRES:
  // byPlace[noWord] is 0.
  void addWords(std::span<const double> byPlace, std::span<double> byNode) const;

 private:
  using Index = std::uint16_t;  // of a node, or of a low or high part of masks

  // Low parts are added up four at a time: loops of one or two turns are predicted.
  static constexpr std::size_t quad = 4;
  static constexpr std::size_t lookAhead = 12;  // entries

  // A prefix has a word of its own or none, in no order that could be predicted. So no branch tells: what
  // ends no word is added and stored at a place of its own.
  std::uint32_t sparePlace;

  // One prefix of the low half of a word, which is as many of its lowest bits.
  struct Prefix {
    std::uint32_t firstPart;  // in partsOfPrefixes
    std::uint8_t quads;
    std::uint8_t depth;  // how many bits it has
  };
  // A prefix as it comes with a high half.
  struct Entry {
    std::uint32_t place;        // of the word that ends here, or sparePlace
    std::uint32_t prefixIndex;  // in prefixes
    Prefix prefix;
  };
  struct Node {
    Index index;  // in the list
    Index lowPart;
  };

  void enterPrefixes(std::span<const PlacedWord> words);
  void enterParts(const NodeList& list, const std::vector<ConfigurationWord>& lowParts,
                  const std::vector<bool>& lowPartIsUsed);
  void enterWords(std::span<const PlacedWord> words);
  // The sums of the nodes by their low part, as far as `highHalf` contains their high part.
  void sumHighParts(std::size_t highHalf, std::span<const double> byNode,
                    std::vector<double>& byLowPart) const;

  std::size_t lowPartCount = 0;  // one more, which no node has, fills up quads
  // The low halves of words and all that is left of them without some of their topmost bits, in ascending
  // order, so that a prefix comes before those that it begins. Of each, the low parts and the nodes without a
  // high part that it contains and the next shorter prefix does not.
  std::vector<ConfigurationWord> lowHalves;
  std::vector<std::uint32_t> parents;  // the next shorter prefix; of the empty one itself
  std::vector<Prefix> prefixes;
  std::vector<Index> partsOfPrefixes;
  Rows<Index> nodesOfPrefix;
  // By the different high halves of words: the words of each as a tree in preorder, and the high parts that
  // it contains.
  Rows<Entry> entriesOfHighHalf;
  Rows<Index> highPartsOfHighHalf;
  // By the different high parts of masks; none for the empty one.
  Rows<Node> nodesOfHighPart;
};

template <typename Store>
void FiringMatrix::sumNodes(std::span<const double> byNode, Store store) const {
  std::vector<double> ofPlainNodes(lowHalves.size());
  for (std::size_t prefix = 0; prefix < lowHalves.size(); ++prefix) {
    double sum = ofPlainNodes[parents[prefix]];
    for (const Index node : nodesOfPrefix[prefix]) sum += byNode[node];
    ofPlainNodes[prefix] = sum;
  }
  std::vector<double> byLowPart(lowPartCount + 1);
  double alongPath[lowHalfBits + 2] = {};  // by depth, one further on
  for (std::size_t highHalf = 0; highHalf < entriesOfHighHalf.size(); ++highHalf) {
    sumHighParts(highHalf, byNode, byLowPart);
    for (const Entry& entry : entriesOfHighHalf[highHalf]) {
      double* const path = alongPath + entry.prefix.depth;
      double sum = path[0];
      const Index* part = partsOfPrefixes.data() + entry.prefix.firstPart;
      for (std::uint8_t quads = entry.prefix.quads; quads > 0; --quads, part += quad) {
        sum += (byLowPart[part[0]] + byLowPart[part[1]]) + (byLowPart[part[2]] + byLowPart[part[3]]);
      }
      path[1] = sum;
      store(entry.place, ofPlainNodes[entry.prefixIndex] + sum);
    }
  }
}

}  // namespace quorvane

#endif  // QUORVANE_LEARNING_FIT_FIRING_MATRIX_H_

#ifndef QUORVANE_LEARNING_FIRING_MATRIX_H_
#define QUORVANE_LEARNING_FIRING_MATRIX_H_

#include <cstdint>
#include <span>
#include <vector>

#include "network/pattern_node.h"

namespace quorvane {

// The patterns of one list against many words: the matrix a(word, node) that is 1 where the node fires on the
// word and 0 elsewhere, with its two products.
//
// A word of 10 bits fires up to 175 patterns of three bits. So the matrix is not stored, but factored: word
// and mask are cut into a low half, where a piece's circumstances are, and a high half, where its place is. A
// node fires where both halves of its mask are contained. Few high halves occur among the words; for each of
// them, the nodes whose high half it contains are summed up once by their low half, after which a word adds
// up no more than the sums that its own low half contains.
class FiringMatrix {
 public:
  // Neither the list nor the words are needed afterwards. At most 65,535 nodes (patterns of up to three bits
  // are no more than 5,488) and 2^32 - 1 words.
  FiringMatrix(const NodeList& list, std::span<const ConfigurationWord> words);

  // byWord[w] = sum over the nodes that fire on word w of byNode[node], regrouped.
  void sumNodes(std::span<const double> byNode, std::span<double> byWord) const;

  // byNode[n] += sum over the words on which node n fires of byWord[word], regrouped.
  void addWords(std::span<const double> byWord, std::span<double> byNode) const;

 private:
  using Index = std::uint16_t;  // of a node, a part of masks

  // Rows of numbers of varying length, one behind the other.
  class Rows {
   public:
    void add(std::size_t number) { numbers.push_back(static_cast<Index>(number)); }
    void closeRow() { ends.push_back(numbers.size()); }
    std::size_t size() const { return ends.size(); }
    std::span<const Index> operator[](std::size_t row) const {
      const std::size_t begin = row == 0 ? 0 : ends[row - 1];
      return {numbers.data() + begin, ends[row] - begin};
    }

   private:
    std::vector<Index> numbers;
    std::vector<std::size_t> ends;
  };

  struct Word {
    std::uint32_t number;   // in the caller's order
    std::uint32_t lowHalf;  // of the rows below
  };
  struct Node {
    Index number;  // in the list
    Index lowPart;
  };

  std::size_t lowPartCount = 0;
  // By the different low halves of words: the low parts of masks that it contains, and the nodes without a
  // high part that it fires.
  Rows lowPartsOfLowHalf;
  Rows nodesOfLowHalf;
  // By the different high halves of words: the high parts of masks that it contains, and the words that have
  // it.
  Rows highPartsOfHighHalf;
  std::vector<Word> words;
  std::vector<std::size_t> wordEnds;
  // By the different high parts of masks.
  std::vector<Node> nodes;
  std::vector<std::size_t> nodeEnds;
};

}  // namespace quorvane

#endif  // QUORVANE_LEARNING_FIRING_MATRIX_H_

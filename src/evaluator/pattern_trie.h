#ifndef QUORVANE_EVALUATOR_PATTERN_TRIE_H_
#define QUORVANE_EVALUATOR_PATTERN_TRIE_H_

#include <cstdint>
#include <vector>

#include "board/types.h"
#include "network/pattern_node.h"

namespace quorvane::evaluator {

// The patterns of one list, laid out for reading: a trie over the bits of their masks. The children of a node
// stand in one block, each as far behind its start as its bit is behind that of the first child. So those
// that fire are found by their bits, and no other is looked at; the places of bits that no child adds stay
// empty.
class PatternTrie {
 public:
  PatternTrie() = default;
  // Of a list that was read strictly. Throws std::length_error if it is too long for 32-bit places.
  explicit PatternTrie(const NodeList& list);

  bool hasPatterns() const { return nodes.front().childBits != 0; }

  // The sum of the weights of all patterns contained in `word`, added in the order of the list.
  double valueOf(ConfigurationWord word) const {
    double sum = 0.0;
    addFiringChildren(nodes.front(), word, sum);
    return sum;
  }

 private:
  struct Node {
    ConfigurationWord childBits = 0;
    std::uint32_t children = 0;  // where a child that adds bit 0 would stand; wraps around below 0
    float weight = 0.0F;
  };

  void addTrees(const NodeList& list, std::size_t begin, std::size_t end, std::size_t parent,
                ConfigurationWord parentMask);
  void addFiringChildren(const Node& parent, ConfigurationWord word, double& sum) const;

  std::vector<Node> nodes = std::vector<Node>(1);  // the first is the parent of all trees
};

}  // namespace quorvane::evaluator

#endif  // QUORVANE_EVALUATOR_PATTERN_TRIE_H_

#ifndef QUORVANE_NETWORK_PATTERN_NODE_H_
#define QUORVANE_NETWORK_PATTERN_NODE_H_

#include <algorithm>
#include <cstdint>
#include <vector>

#include "board/types.h"

namespace quorvane {

// One pattern and its working state in the fit.
struct PatternNode {
  ConfigurationWord mask;       // the bits that a word must hold for the node to fire; never 0
  ConfigurationWord childBits;  // what the direct children add to `mask`; 0 for a leaf
  float weight;                 // what the node adds to the value of a word
  std::int32_t skip;            // nodes of the subtree that starts here, itself included

  // Of the fit; not stored in network.dat.
  std::int32_t netCount;
  double previousDirection;
  double direction;
  double preconditioner;
};

// A forest of pattern trees in preorder. A root's mask is one bit; a child's is its parent's and one bit
// above all of those. Siblings stand in ascending order of the bit that they add. Growing moves the nodes: a
// place in a list is held as an index.
using NodeList = std::vector<PatternNode>;

// Calls `fire(node)` for every node of the list whose mask is contained in `word`, in list order. A node that
// does not fire takes its subtree with it.
template <typename List, typename Fire>
void forEachFiringNode(List& list, ConfigurationWord word, Fire fire) {
  const auto size = static_cast<std::int64_t>(list.size());
  std::int64_t place = 0;
  while (place < size) {
    auto& node = list[static_cast<std::size_t>(place)];
    bool enter = false;
    if ((node.mask & word) == node.mask) {
      fire(node);
      enter = (word & node.childBits) != 0;
    }
    // A list that was read from a file may claim anything.
    place += enter ? 1 : std::max(node.skip, 1);
  }
}

}  // namespace quorvane

#endif  // QUORVANE_NETWORK_PATTERN_NODE_H_

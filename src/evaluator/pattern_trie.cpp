#include "evaluator/pattern_trie.h"

#include <bit>
#include <cassert>
#include <limits>
#include <stdexcept>

namespace quorvane::evaluator {

PatternTrie::PatternTrie(const NodeList& list) {
  addTrees(list, 0, list.size(), 0, 0);
}

// Lays out the trees of the list from `begin` to `end` as the children of the node at `parent`.
void PatternTrie::addTrees(const NodeList& list, std::size_t begin, std::size_t end, std::size_t parent,
                           ConfigurationWord parentMask) {
  if (begin == end) return;
  const auto forEachTree = [&](auto visit) {
    for (std::size_t at = begin; at < end;) {
      assert(list[at].skip > 0 && std::has_single_bit(list[at].mask ^ parentMask));
      const std::size_t next = at + static_cast<std::size_t>(list[at].skip);
      assert(next <= end);
      visit(at, next, list[at].mask & ~parentMask);
      at = next;
    }
  };
  ConfigurationWord childBits = 0;
  forEachTree([&](std::size_t, std::size_t, ConfigurationWord added) { childBits |= added; });
  const std::int32_t lowest = std::countr_zero(childBits);
  const std::size_t block = nodes.size();
  const std::int32_t places = static_cast<std::int32_t>(std::bit_width(childBits)) - lowest;
  if (block > std::numeric_limits<std::uint32_t>::max() - 32)
    throw std::length_error("holds too many patterns");
  nodes.resize(block + static_cast<std::size_t>(places));
  nodes[parent].childBits = childBits;
  nodes[parent].children = static_cast<std::uint32_t>(block) - static_cast<std::uint32_t>(lowest);
  forEachTree([&](std::size_t at, std::size_t next, ConfigurationWord added) {
    const std::size_t child = block + static_cast<std::size_t>(std::countr_zero(added) - lowest);
    nodes[child].weight = list[at].weight;
    addTrees(list, at + 1, next, child, list[at].mask);
  });
}

void PatternTrie::addFiringChildren(const Node& parent, ConfigurationWord word, double& sum) const {
  for (ConfigurationWord firing = parent.childBits & word; firing != 0; firing &= firing - 1) {
    const Node& child = nodes[parent.children + static_cast<std::uint32_t>(std::countr_zero(firing))];
    sum += static_cast<double>(child.weight);
    if ((child.childBits & word) != 0) addFiringChildren(child, word, sum);
  }
}

}  // namespace quorvane::evaluator

#ifndef QUORVANE_LEARNING_FIT_ORDERED_SUMS_H_
#define QUORVANE_LEARNING_FIT_ORDERED_SUMS_H_

#include <span>

#include "learning/fit/firing_matrix.h"
#include "learning/fit/word_value.h"
#include "network/pattern_node.h"

namespace quorvane {

// byPlace[w] = the value of word w: the sum of the weights of the nodes that fire on it, in the order of the
// list, rounded to double at each addition: to the last bit what a walk over the list gives. `matrix` is that
// of the list and the words; at its place of no word, anything may stand then.
void sumWeightsInOrder(const NodeList& list, std::span<const PlacedWord> words, const FiringMatrix& matrix,
                       std::span<WordValue> byPlace);

}  // namespace quorvane

#endif  // QUORVANE_LEARNING_FIT_ORDERED_SUMS_H_

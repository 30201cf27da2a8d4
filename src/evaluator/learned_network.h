#ifndef QUORVANE_EVALUATOR_LEARNED_NETWORK_H_
#define QUORVANE_EVALUATOR_LEARNED_NETWORK_H_

#include "configurations/position_words.h"
#include "evaluator/pattern_trie.h"
#include "network/network_table.h"

namespace quorvane::evaluator {

// A network to evaluate by; it never changes.
class LearnedNetwork {
 public:
  // Of a table that was read strictly.
  explicit LearnedNetwork(const NetworkTable& table);

  double valueOf(PositionType type, std::int32_t kind, ConfigurationWord word) const {
    return tries[type][kind].valueOf(word);
  }
  bool knows(PositionType type) const;

 private:
  Table<Table<PatternTrie, pieceKindCount>, positionTypeCount> tries;
};

// The value of a position, which `described` describes, as the side to move sees it; what words are worth
// comes from `source`, a LearnedNetwork or a WordCache.
template <typename Source>
double evaluate(const PositionSets& position, const PositionWords& described, Source& source) {
  const auto sumOf = [&](Side side) {
    double sum = 0.0;
    for (std::int32_t kind = 0; kind < pieceKindCount; ++kind) {
      for (const Square square : Squares(position.pieces[side][kind])) {
        sum += source.valueOf(described.type, kind, described.words[square]);
      }
    }
    return sum;
  };
  return sumOf(position.sideToMove) - sumOf(opponent(position.sideToMove));
}

}  // namespace quorvane::evaluator

#endif  // QUORVANE_EVALUATOR_LEARNED_NETWORK_H_

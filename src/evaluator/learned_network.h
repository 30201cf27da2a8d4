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

  const PatternTrie& patterns(PositionType type, std::int32_t kind) const { return tries[type][kind]; }
  bool knows(PositionType type) const;

 private:
  Table<Table<PatternTrie, pieceKindCount>, positionTypeCount> tries;
};

// The value of a position, which `described` describes, as the side to move sees it, with the worth of a word from `valueOf(type, kind, word)`.
template <typename ValueOf>
double evaluate(const PositionSets& position, const PositionWords& described, ValueOf valueOf) {
  const auto sumOf = [&](Side side) {
    double sum = 0.0;
    for (std::int32_t kind = 0; kind < pieceKindCount; ++kind) {
      for (const Square square : Squares(position.pieces[side][kind])) {
        sum += valueOf(described.type, kind, described.words[square]);
      }
    }
    return sum;
  };
  return sumOf(position.sideToMove) - sumOf(opponent(position.sideToMove));
}

}  // namespace quorvane::evaluator

#endif  // QUORVANE_EVALUATOR_LEARNED_NETWORK_H_

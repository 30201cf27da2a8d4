#ifndef QUORVANE_INSPECT_POSITION_POSITION_VALUE_H_
#define QUORVANE_INSPECT_POSITION_POSITION_VALUE_H_

#include "evaluator/learned_network.h"
#include "evaluator/word_cache.h"

namespace quorvane::inspect {

// A position and the words of its pieces.
struct DescribedPosition {
  PositionSets sets;
  PositionWords words;
};

// What positions are worth by one network. Remembers what it has worked out.
class PositionValue {
 public:
  explicit PositionValue(const NetworkTable& table) : network(table), cache(network) {}
  PositionValue(const PositionValue&) = delete;
  PositionValue& operator=(const PositionValue&) = delete;

  // The value of the position as the side to move sees it. Calls visit(side, kind, square, worth) for every
  // piece, with what it is worth to its own side: the sum of the weights of all patterns that fire on it,
  // rounded to 32 bits as the caches of the evaluation do. That makes sums of those of usual size exact,
  // whatever their order.
  template <typename Visit>
  double of(const DescribedPosition& position, Visit visit) {
    const PositionType type = position.words.type;
    double value = 0.0;
    for (const Side side : {black, white}) {
      for (std::int32_t kind = 0; kind < pieceKindCount; ++kind) {
        for (const Square square : Squares(position.sets.pieces[side][kind])) {
          const auto worth = static_cast<float>(cache.valueOf(type, kind, position.words.words[square]));
          visit(side, kind, square, static_cast<double>(worth));
          value += static_cast<double>(side == position.sets.sideToMove ? worth : -worth);
        }
      }
    }
    return value;
  }
  double of(const DescribedPosition& position) {
    return of(position, [](auto&&...) {});
  }

 private:
  evaluator::LearnedNetwork network;
  evaluator::WordCache cache;
};

}  // namespace quorvane::inspect

#endif  // QUORVANE_INSPECT_POSITION_POSITION_VALUE_H_

#ifndef QUORVANE_EVALUATOR_POSITION_WORDS_H_
#define QUORVANE_EVALUATOR_POSITION_WORDS_H_

#include "evaluator/piece_sets.h"

namespace quorvane::evaluator {

// The configuration words of a position.
struct PositionWords {
  PositionType type;
  SquareSet occupied;
  Table<ConfigurationWord, squareCount> words;  // by square; 0 where nothing stands
};

// Describes a position as ConfigurationPass does one on the board, from nothing but the sets.
PositionWords describe(const PieceSets& position);

}  // namespace quorvane::evaluator

#endif  // QUORVANE_EVALUATOR_POSITION_WORDS_H_

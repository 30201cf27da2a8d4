#ifndef QUORVANE_EVALUATOR_GIVEN_POSITION_H_
#define QUORVANE_EVALUATOR_GIVEN_POSITION_H_

#include <string_view>

#include "configurations/position_words.h"
#include "quorvane/evaluator.h"

namespace quorvane::evaluator {

// What callers give as positions. Both tell by their status what is wrong, and fill what they are given only
// if nothing is.

// The pieces of a FEN; that they can stand on a board is not looked at.
quorvane_status readFen(std::string_view fen, quorvane_position& position);

// The same position as sets, if it is one that can be evaluated.
quorvane_status readPosition(const quorvane_position& position, PositionSets& sets);

}  // namespace quorvane::evaluator

#endif  // QUORVANE_EVALUATOR_GIVEN_POSITION_H_

#ifndef QUORVANE_CONFIGURATIONS_POSITION_WORDS_H_
#define QUORVANE_CONFIGURATIONS_POSITION_WORDS_H_

#include "board/piece_sets.h"
#include "board/table.h"
#include "board/types.h"

namespace quorvane {

// What the words of a position depend on. Whoever fills it sees to it that each side has one king and at most
// piecesPerSide pieces, that no square is taken twice and no pawn stands on its last rank.
struct PositionSets {
  PieceSets pieces{};
  Side sideToMove = white;
  Table<bool, 2> castled{};  // has the side castled earlier in the game?
};

// The configuration words of a position.
struct PositionWords {
  PositionType type;
  SquareSet occupied;
  Table<ConfigurationWord, squareCount> words;  // by square; 0 where nothing stands
};

// Describes a position as ConfigurationPass does one on the board, from nothing but the sets.
PositionWords describe(const PositionSets& position);

}  // namespace quorvane

#endif  // QUORVANE_CONFIGURATIONS_POSITION_WORDS_H_

#ifndef QUORVANE_INSPECT_EXPLANATION_H_
#define QUORVANE_INSPECT_EXPLANATION_H_

#include <vector>

#include "board/types.h"

namespace quorvane {

struct FiringPattern {
  ConfigurationWord mask;
  float weight;
};

// What one piece is worth to its own side, and why.
struct ExplainedPiece {
  Square square;
  Side side;
  PieceKind kind;
  ConfigurationWord word;
  double value;                         // the sum of the weights
  std::vector<FiringPattern> patterns;  // the greatest absolute weight first
};

// What the position on the board is worth, in the unit of targets.
struct Explanation {
  PositionType type;
  Side sideToMove;
  bool typeHasPatterns;                // false for a row that was never learned
  std::vector<ExplainedPiece> pieces;  // of the side to move, then of the other; each the king first
  double ownSum;                       // of the pieces of the side to move
  double opposingSum;
  double total() const { return ownSum - opposingSum; }  // as the side to move sees it
};

// Explains the position on the board by the network table. Sets what a classification sets.
Explanation explainPosition();

}  // namespace quorvane

#endif  // QUORVANE_INSPECT_EXPLANATION_H_

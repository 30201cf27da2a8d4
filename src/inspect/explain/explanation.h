#ifndef QUORVANE_INSPECT_EXPLAIN_EXPLANATION_H_
#define QUORVANE_INSPECT_EXPLAIN_EXPLANATION_H_

#include <optional>
#include <vector>

#include "inspect/measure/calibration.h"
#include "inspect/position/look_ahead.h"
#include "network/network_table.h"

namespace quorvane::inspect {

// Patterns that differ by nothing but features that every such piece has are one, without these features.
struct FiringPattern {
  ConfigurationWord mask;
  double weight;
};

// What one piece is worth to its own side, and why.
struct ExplainedPiece {
  Square square;
  Side side;
  PieceKind kind;
  ConfigurationWord word;
  double value;                         // the sum of the weights
  std::vector<FiringPattern> patterns;  // the greatest absolute weight first
  std::optional<double> meanWorth;      // of such a piece, as a calibration has it

  std::optional<double> aboveMean() const {
    return meanWorth ? std::optional(value - *meanWorth) : std::nullopt;
  }
};

// What the position on the board is worth, in the unit of targets.
struct Explanation {
  PositionType type;
  Side sideToMove;
  bool typeHasPatterns;                // false for a row that was never learned
  std::vector<ExplainedPiece> pieces;  // of the side to move, then of the other; each the king first
  Table<double, 2> sums;               // of the pieces, by side
  bool calibrated;                     // was there a calibration?
  std::optional<double> expectedScore;
  double pawns;                      // as a search needs them, with the material
  std::optional<Searched> searched;  // if it was

  // As the side to move sees it.
  double total() const { return sums[sideToMove] - sums[opponent(sideToMove)]; }
};

// Explains the position on the board by a network, and its calibration if there is one.
Explanation explainPosition(const NetworkTable& table, const std::optional<Calibration>& calibration);

// What one pattern does to the whole position.
struct DecidingPattern {
  PieceKind kind;
  ConfigurationWord mask;
  double weight;                 // all of its pieces together, as the side to move sees it
  std::vector<Square> own;       // pieces of the side to move on which it fires
  std::vector<Square> opposing;  // the same of the other side
};

// At most `count`: those that do most, the greatest absolute weight first. What fires on both sides alike
// cancels out.
std::vector<DecidingPattern> decidingPatterns(const Explanation& explanation, std::size_t count);

}  // namespace quorvane::inspect

#endif  // QUORVANE_INSPECT_EXPLAIN_EXPLANATION_H_

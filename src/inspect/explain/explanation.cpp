#include "inspect/explain/explanation.h"

#include <algorithm>
#include <cmath>
#include <functional>
#include <map>
#include <utility>

#include "board/piece.h"
#include "board/ring.h"
#include "configurations/bit_names.h"
#include "evaluator/steepness.h"
#include "inspect/patterns/summary.h"
#include "inspect/position/position.h"

namespace quorvane::inspect {

namespace {

void sortByStrength(auto& patterns) {
  std::ranges::stable_sort(patterns, std::greater(),
                           [](const auto& pattern) { return std::abs(pattern.weight); });
}

ExplainedPiece explainPiece(const Piece& piece, ConfigurationWord word, const NodeList& list) {
  ExplainedPiece explained{piece.square, piece.side, piece.kind, word, 0.0, {}, {}};
  std::map<ConfigurationWord, double> weights;
  forEachFiringNode(list, word, [&](const PatternNode& node) {
    const ConfigurationWord telling = node.mask & ~alwaysHolds(piece.kind);
    const auto weight = static_cast<double>(node.weight);
    weights[telling != 0 ? telling : node.mask] += weight;
    explained.value += weight;
  });
  for (const auto& [mask, weight] : weights) explained.patterns.push_back({mask, weight});
  sortByStrength(explained.patterns);
  return explained;
}

// Reaches the board's members, as every class that works on the position does.
class Explainer : public Position {
 public:
  static Explanation explain(const NetworkTable& table, const std::optional<Calibration>& calibration) {
    const DescribedPosition position = described();
    const PositionType type = position.words.type;
    const Side mover = currentMove.sideToMove;
    Explanation explanation{type, mover, patternCount(table[type]) != 0, {}, {}, false, {}, 0.0, {}};
    for (const Side side : {mover, opponent(mover)}) {
      for (const Piece& piece : Ring(kings[side])) {
        const ConfigurationWord word = position.words.words[piece.square];
        explanation.pieces.push_back(explainPiece(piece, word, table[type][piece.kind]));
        explanation.sums[side] += explanation.pieces.back().value;
      }
    }
    std::optional<double> steepness;
    if (explanation.typeHasPatterns)
      steepness = calibration ? calibration->types[type].steepness : evaluator::usualSteepness;
    explanation.pawns = evaluator::pawnsOf(position.sets, steepness, explanation.total());
    return explanation;
  }
};

}  // namespace

Explanation explainPosition(const NetworkTable& table, const std::optional<Calibration>& calibration) {
  Explanation explanation = Explainer::explain(table, calibration);
  if (!calibration) return explanation;
  explanation.calibrated = true;
  explanation.expectedScore = calibration->expectedScore(explanation.type, explanation.total());
  for (ExplainedPiece& piece : explanation.pieces)
    piece.meanWorth = calibration->types[explanation.type].meanWorth[piece.kind];
  return explanation;
}

std::vector<DecidingPattern> decidingPatterns(const Explanation& explanation, std::size_t count) {
  std::map<std::pair<PieceKind, ConfigurationWord>, DecidingPattern> byPattern;
  for (const ExplainedPiece& piece : explanation.pieces) {
    const bool own = piece.side == explanation.sideToMove;
    for (const auto& [mask, weight] : piece.patterns) {
      DecidingPattern& pattern =
          byPattern.try_emplace({piece.kind, mask}, DecidingPattern{piece.kind, mask, 0.0, {}, {}})
              .first->second;
      pattern.weight += own ? weight : -weight;
      (own ? pattern.own : pattern.opposing).push_back(piece.square);
    }
  }
  std::vector<DecidingPattern> patterns;
  patterns.reserve(byPattern.size());
  for (auto& [key, pattern] : byPattern) patterns.push_back(std::move(pattern));
  sortByStrength(patterns);
  if (patterns.size() > count) patterns.resize(count);
  return patterns;
}

}  // namespace quorvane::inspect

#include "inspect/explain/explanation.h"

#include <algorithm>
#include <cmath>
#include <functional>
#include <map>
#include <utility>

#include "board/piece.h"
#include "board/ring.h"
#include "configurations/bit_names.h"
#include "inspect/patterns/summary.h"
#include "network/network.h"

namespace quorvane::inspect {

namespace {

void sortByStrength(auto& patterns) {
  std::ranges::stable_sort(patterns, std::greater(),
                           [](const auto& pattern) { return std::abs(pattern.weight); });
}

ExplainedPiece explainPiece(const Piece& piece, const NodeList& list) {
  ExplainedPiece explained{piece.square, piece.side, piece.kind, piece.configuration, 0.0, {}};
  std::map<ConfigurationWord, double> weights;
  forEachFiringNode(list, piece.configuration, [&](const PatternNode& node) {
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
class Explainer : public Network {
 public:
  Explainer() : Network(TableAsItStands{}) {}

  Explanation explain() {
    const PositionType type = classifyPosition(classifyBoard, false);
    computeConfigurations();
    const Side side = currentMove.sideToMove;
    Explanation explanation{type, side, patternCount(row()) != 0, {}, 0.0, 0.0};
    explanation.ownSum = addSide(side, explanation.pieces);
    explanation.opposingSum = addSide(opponent(side), explanation.pieces);
    return explanation;
  }

 private:
  double addSide(Side side, std::vector<ExplainedPiece>& pieces) {
    double sum = 0.0;
    for (const Piece& piece : Ring(kings[side])) {
      pieces.push_back(explainPiece(piece, row()[piece.kind]));
      sum += pieces.back().value;
    }
    return sum;
  }
};

}  // namespace

Explanation explainPosition() {
  return Explainer().explain();
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

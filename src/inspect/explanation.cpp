#include "inspect/explanation.h"

#include <algorithm>
#include <cmath>
#include <functional>

#include "board/piece.h"
#include "inspect/summary.h"
#include "network/network.h"

namespace quorvane {

namespace {

ExplainedPiece explainPiece(const Piece& piece, const NodeList& list) {
  ExplainedPiece explained{piece.square, piece.side, piece.kind, piece.configuration, 0.0, {}};
  forEachFiringNode(list, piece.configuration, [&](const PatternNode& node) {
    explained.value += static_cast<double>(node.weight);
    explained.patterns.push_back({node.mask, node.weight});
  });
  std::ranges::stable_sort(explained.patterns, std::greater(),
                           [](const FiringPattern& pattern) { return std::abs(pattern.weight); });
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
    explanation.opposingSum = addSide(1 - side, explanation.pieces);
    return explanation;
  }

 private:
  double addSide(Side side, std::vector<ExplainedPiece>& pieces) {
    double sum = 0.0;
    forEachInRing(kings[side], [&](const Piece& piece) {
      pieces.push_back(explainPiece(piece, row()[piece.kind]));
      sum += pieces.back().value;
    });
    return sum;
  }
};

}  // namespace

Explanation explainPosition() {
  return Explainer().explain();
}

}  // namespace quorvane

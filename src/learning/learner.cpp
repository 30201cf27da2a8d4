#include "learning/learner.h"

namespace quorvane {

Learner::Learner() {
  for (Piece*& piece : pieceById) piece = nullptr;
}

Learner::~Learner() {
  releaseBoard();
}

bool Learner::foundPatterns() {
  for (PositionType type = firstLearnedType; type <= lastPositionType; ++type) {
    for (const NodeList& list : networkTable[type]) {
      if (!list.empty()) return true;
    }
  }
  return false;
}

void Learner::use(PositionType type) {
  currentSet = &sampleSets[type];
  network.classifyPosition(type, true);
}

}  // namespace quorvane

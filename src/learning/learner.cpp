#include "learning/learner.h"

#include <cassert>

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
  assert(type >= 0 && type < positionTypeCount);
  currentSet = &sampleSets[type];
  network.classifyPosition(type, true);
}

}  // namespace quorvane

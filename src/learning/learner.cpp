#include "learning/learner.h"

#include <cassert>

namespace quorvane {

Learner::Learner() {
  for (Piece*& piece : pieceById) piece = nullptr;
}

Learner::~Learner() {
  releaseBoard();
}

void Learner::use(PositionType type) {
  assert(type >= 0 && type < positionTypeCount);
  currentSet = &sampleSets[type];
  network.classifyPosition(type, true);
}

}  // namespace quorvane

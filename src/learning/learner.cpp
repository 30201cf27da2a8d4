#include "learning/learner.h"

namespace quorvane {

Learner::Learner() {
  for (Piece*& piece : pieceById) piece = nullptr;
}

Learner::~Learner() {
  releaseBoard();
}

void Learner::use(PositionType type) {
  currentSet = &sampleSets[type];
  network.classifyPosition(type, true);
}

}  // namespace quorvane

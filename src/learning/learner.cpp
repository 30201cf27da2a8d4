#include "learning/learner.h"

namespace quorvane {

Learner::Learner() {
  for (Piece*& piece : pieceById) piece = nullptr;
}

Learner::~Learner() {
  releaseBoard();
}

std::size_t Learner::sampleCount() const {
  std::size_t count = 0;
  for (PositionType type = firstLearnedType; type <= lastPositionType; ++type) count += sampleSets[type].size();
  return count;
}

std::size_t Learner::patternCount() {
  std::size_t count = 0;
  for (PositionType type = firstLearnedType; type <= lastPositionType; ++type) {
    for (const NodeList& list : networkTable[type]) count += list.size();
  }
  return count;
}

void Learner::use(PositionType type) {
  currentSet = &sampleSets[type];
  network.classifyPosition(type, true);
}

}  // namespace quorvane

#include "learning/learner.h"

namespace quorvane {

Learner::Learner() {
  for (Piece*& piece : pieceById) piece = nullptr;
}

Learner::~Learner() {
  releaseBoard();
}

}  // namespace quorvane

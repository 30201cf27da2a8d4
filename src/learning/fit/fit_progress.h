#ifndef QUORVANE_LEARNING_FIT_FIT_PROGRESS_H_
#define QUORVANE_LEARNING_FIT_FIT_PROGRESS_H_

#include "board/types.h"

namespace quorvane {

class FitSystem;
struct Residuals;

// Prints how the fits go on standard output; the one place that does. For each type, the calls come in this
// order, `stepped` as often as there are steps. Whoever wants to see more derives from it and calls what it
// overrides.
class FitProgress {
 public:
  virtual ~FitProgress() = default;

  virtual void begins(PositionType type);
  virtual void building();
  // Residuals are those at the weights with which the first step, or the step, began.
  virtual void built(const FitSystem& system, const Residuals& residuals);
  virtual void stepped(const Residuals& residuals);
  virtual void fitted();
  virtual void saved(float hitPercentage);
  virtual void ends(const Residuals& residuals);
};

}  // namespace quorvane

#endif  // QUORVANE_LEARNING_FIT_FIT_PROGRESS_H_

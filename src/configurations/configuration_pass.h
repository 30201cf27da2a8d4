#ifndef QUORVANE_CONFIGURATIONS_CONFIGURATION_PASS_H_
#define QUORVANE_CONFIGURATIONS_CONFIGURATION_PASS_H_

#include "board/board.h"

namespace quorvane {

// Describes the position on the board by the words of its pieces.
class ConfigurationPass : public Board {
 public:
  // Fills `configuration` of every piece on the board. The position must have been classified: pawnEnding is
  // read.
  static void computeConfigurations();
};

}  // namespace quorvane

#endif  // QUORVANE_CONFIGURATIONS_CONFIGURATION_PASS_H_

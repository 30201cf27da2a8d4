#ifndef QUORVANE_NETWORK_SAMPLE_H_
#define QUORVANE_NETWORK_SAMPLE_H_

#include <cstdint>
#include <vector>

#include "configurations/piece_configuration.h"

namespace quorvane {

// One training position. Each list begins with its side's king and goes on in the order of the side's ring.
struct Sample {
  std::vector<PieceConfiguration> ownList;       // of the side to move
  std::vector<PieceConfiguration> opposingList;  // of the other side
  std::int32_t target = 0;                       // what the fit aims at, as the side to move sees it
};

}  // namespace quorvane

#endif  // QUORVANE_NETWORK_SAMPLE_H_

#ifndef QUORVANE_CONFIGURATIONS_PIECE_CONFIGURATION_H_
#define QUORVANE_CONFIGURATIONS_PIECE_CONFIGURATION_H_

#include <cstdint>

#include "board/types.h"

namespace quorvane {

// One piece of one sampled position.
struct PieceConfiguration {
  ConfigurationWord word;
  std::uint8_t kind;  // PieceKind, 0 to 5

  friend bool operator==(const PieceConfiguration&, const PieceConfiguration&) = default;
};

}  // namespace quorvane

#endif  // QUORVANE_CONFIGURATIONS_PIECE_CONFIGURATION_H_

#ifndef QUORVANE_INSPECT_SQUARE_BITS_H_
#define QUORVANE_INSPECT_SQUARE_BITS_H_

#include <cstdint>

#include "board/types.h"

namespace quorvane {

// The bits that a white piece of `kind` has by its square alone, whatever else stands on the board: zone,
// centre distance, ring, file, rank, half, edge. None for a pawn on an outer rank. For Black, turn the board
// round.
ConfigurationWord squareBits(std::int32_t kind, Square square);

}  // namespace quorvane

#endif  // QUORVANE_INSPECT_SQUARE_BITS_H_

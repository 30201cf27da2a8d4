#include "pgn/placement.h"

namespace quorvane {

void Placement::append(std::int32_t list, Square square) {
  squares.insert(squares.begin() + ends[list], static_cast<std::uint8_t>(square));
  for (std::int32_t shifted = list; shifted < placementListCount; ++shifted) ++ends[shifted];
}

void Placement::clear() {
  squares.clear();
  ends = {};
}

}  // namespace quorvane

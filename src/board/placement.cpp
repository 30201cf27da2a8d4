#include "board/placement.h"

#include <array>

namespace quorvane {

// The board has ids for piecesPerSide and room for one piece on a square, and a pawn that can go no further
// has no moves that stay on it.
bool Placement::fitsBoard() const {
  std::array<bool, squareCount> taken{};
  for (const std::uint8_t square : all()) {
    if (taken[square]) return false;
    taken[square] = true;
  }
  for (const Side side : {black, white}) {
    const std::int32_t firstList = side * placementListsPerSide;
    std::size_t pieces = 0;
    for (std::int32_t list = 0; list < placementListsPerSide; ++list)
      pieces += (*this)[firstList + list].size();
    if (pieces > std::size_t{piecesPerSide}) return false;
    for (const std::uint8_t square : (*this)[firstList]) {  // the pawns
      if (relativeRank(side, rankOf(square)) == 7) return false;
    }
  }
  return true;
}

}  // namespace quorvane

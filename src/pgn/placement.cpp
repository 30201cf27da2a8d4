#include "pgn/placement.h"

#include <array>

namespace quorvane {

void Placement::append(std::int32_t list, Square square) {
  squares.insert(squares.begin() + ends[list], static_cast<std::uint8_t>(square));
  for (std::int32_t shifted = list; shifted < placementListCount; ++shifted) ++ends[shifted];
}

void Placement::clear() {
  squares.clear();
  ends = {};
}

// The board has ids for 16 pieces on a side and room for one on a square, and a pawn that can go no further
// has no moves that stay on it.
bool Placement::fitsBoard() const {
  constexpr std::size_t mostPiecesOfASide = 16;
  std::array<bool, squareCount> taken{};
  for (const std::uint8_t square : squares) {
    if (taken[square]) return false;
    taken[square] = true;
  }
  for (const std::int32_t firstList : {0, placementListsPerSide}) {
    std::size_t pieces = 0;
    for (std::int32_t list = 0; list < placementListsPerSide; ++list)
      pieces += (*this)[firstList + list].size();
    if (pieces > mostPiecesOfASide) return false;
    const std::int32_t lastRank = firstList == 0 ? 0 : 7;
    for (const std::uint8_t square : (*this)[firstList]) {  // the pawns
      if (rankOf(square) == lastRank) return false;
    }
  }
  return true;
}

}  // namespace quorvane

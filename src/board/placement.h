#ifndef QUORVANE_BOARD_PLACEMENT_H_
#define QUORVANE_BOARD_PLACEMENT_H_

#include <array>
#include <cassert>
#include <cstdint>
#include <span>

#include "board/rows.h"
#include "board/table.h"
#include "board/types.h"

namespace quorvane {

// The lists of a Placement: black first.
inline constexpr std::int32_t placementListCount = 12;
inline constexpr std::int32_t placementListsPerSide = placementListCount / 2;
// The kinds of a side's lists.
inline constexpr Table<PieceKind, placementListsPerSide> placementKinds = {
    {pawnKind, rookKind, bishopKind, knightKind, queenKind, kingKind}};
constexpr std::int32_t placementListOf(Side side, PieceKind kind) {
  return side * placementListsPerSide + placementKinds[kind];  // the kinds' own inverse
}
static_assert(placementListOf(white, rookKind) == 7 && placementListOf(black, knightKind) == 3);
inline constexpr std::int32_t blackKingList = placementListOf(black, kingKind);
inline constexpr std::int32_t whiteKingList = placementListOf(white, kingKind);

// A start position: twelve lists of squares, one for each kind of either side, each in the order of the text.
//
// All lists stand in one array, since every game holds a Placement and few hold an unusual one.
class Placement {
 public:
  // The squares of one list, 0 to 11; valid until the next append.
  std::span<const std::uint8_t> operator[](std::int32_t list) const {
    return lists[static_cast<std::size_t>(list)];
  }

  // All squares, list after list.
  std::span<const std::uint8_t> all() const { return lists.all(); }

  // Can Board::setupPosition put it on the board? The kings are not looked at.
  bool fitsBoard() const;

  void append(Side side, PieceKind kind, Square square) {
    assert(square >= 0 && square < squareCount);
    const std::int32_t list = placementListOf(side, kind);
    lists.appendTo(static_cast<std::size_t>(list), static_cast<std::uint8_t>(square));
  }
  void clear() { lists = {}; }

 private:
  Rows<std::uint8_t, std::array<std::uint32_t, placementListCount>> lists;
};

}  // namespace quorvane

#endif  // QUORVANE_BOARD_PLACEMENT_H_

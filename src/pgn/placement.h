#ifndef QUORVANE_PGN_PLACEMENT_H_
#define QUORVANE_PGN_PLACEMENT_H_

#include <cstdint>
#include <span>
#include <string_view>
#include <vector>

#include "board/table.h"
#include "board/types.h"

namespace quorvane {

// The letters of FEN in the order of the lists of a Placement: black first.
inline constexpr std::string_view placementLetters = "prbnqkPRBNQK";
inline constexpr std::int32_t placementListCount = 12;
inline constexpr std::int32_t placementListsPerSide = placementListCount / 2;
// The kinds of a side's lists.
inline constexpr Table<PieceKind, placementListsPerSide> placementKinds = {
    {pawnKind, rookKind, bishopKind, knightKind, queenKind, kingKind}};
inline constexpr std::int32_t blackKingList = 5;
inline constexpr std::int32_t whiteKingList = placementListsPerSide + blackKingList;

// A start position: twelve lists of squares, one for each letter of FEN, each in the order of the text.
//
// All lists stand in one array, since every game holds a Placement and few hold an unusual one.
class Placement {
 public:
  // The squares of one list, 0 to 11; valid until the next append.
  std::span<const std::uint8_t> operator[](std::int32_t list) const {
    const std::size_t begin = list == 0 ? 0 : ends[list - 1];
    return {squares.data() + begin, ends[list] - begin};
  }

  // All squares, list after list.
  std::span<const std::uint8_t> all() const { return squares; }

  // Can Learner::setupPosition put it on the board? The kings are not looked at.
  bool fitsBoard() const;

  void append(std::int32_t list, Square square);
  void clear();

 private:
  std::vector<std::uint8_t> squares;
  Table<std::uint32_t, placementListCount> ends{};  // of each list in `squares`
};

}  // namespace quorvane

#endif  // QUORVANE_PGN_PLACEMENT_H_

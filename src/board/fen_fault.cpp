#include "board/fen_fault.h"

#include <algorithm>

namespace quorvane {

namespace {

using FenFault = StrictFen::Fault;

std::string faultInRank(const StrictFen& fen) {
  const std::string name = "rank " + std::to_string(fen.rank + 1);
  if (fen.fault == FenFault::letter) return name + " holds '" + fen.letter + "', which is no piece";
  return name + " has " + std::to_string(fen.files) + " files";
}

bool isPawnOn(std::int32_t rank, const StrictFen::PlacedPiece& placed) {
  return placed.kind == pawnKind && rankOf(placed.square) == rank;
}

}  // namespace

std::string faultIn(const StrictFen& fen) {
  if (fen.fault == FenFault::ranks) {
    const std::string ranks = fen.ranks == 1 ? " rank" : " ranks";
    return "has " + std::to_string(fen.ranks) + ranks + " instead of 8";
  }
  // From the top, as people read.
  const bool rankIsWrong = fen.fault == FenFault::letter || fen.fault == FenFault::files;
  for (std::int32_t rank = 7; rank >= fen.rank; --rank) {
    if (rankIsWrong && rank == fen.rank) return faultInRank(fen);
    const auto isPawnHere = [=](const auto& placed) { return isPawnOn(rank, placed); };
    if ((rank == 0 || rank == 7) && std::ranges::any_of(fen.pieces(), isPawnHere))
      return "a pawn stands on rank " + std::to_string(rank + 1);
  }
  for (const Side side : {white, black}) {
    const auto isKing = [=](const auto& placed) { return placed.kind == kingKind && placed.side == side; };
    if (std::ranges::count_if(fen.pieces(), isKing) != 1) return "does not give each side exactly one king";
  }
  if (fen.side.empty()) return "does not say which side is to move";
  if (fen.fault == FenFault::side)
    return "names '" + std::string(fen.side) + "' as the side to move, which is neither w nor b";
  return {};  // what follows is not looked at
}

}  // namespace quorvane

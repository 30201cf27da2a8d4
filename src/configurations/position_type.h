#ifndef QUORVANE_CONFIGURATIONS_POSITION_TYPE_H_
#define QUORVANE_CONFIGURATIONS_POSITION_TYPE_H_

#include <cstdint>
#include <initializer_list>

#include "board/piece_classes.h"
#include "board/piece_sets.h"
#include "board/table.h"
#include "board/types.h"

namespace quorvane {

// How many pieces of each kind a side has.
using PieceCounts = Table<std::int32_t, pieceKindCount>;

inline PieceCounts countsOf(const SideSets& pieces) {
  PieceCounts counts;
  for (std::int32_t kind = 0; kind < pieceKindCount; ++kind) counts[kind] = countOf(pieces[kind]);
  return counts;
}

// In thousandths of a pawn.
constexpr std::int32_t materialOf(const PieceCounts& counts) {
  std::int32_t total = 0;
  for (const PieceClass* const piece :
       {&whitePawnClass, &knightClass, &bishopClass, &rookClass, &queenClass}) {
    total += counts[piece->kind] * piece->material;
  }
  return total;
}

// The type of a position in which the two sides have these pieces, whichever is whose.
PositionType positionTypeOf(const PieceCounts& first, const PieceCounts& second);

// Is this a type of kings and pawns only, whose pawns have bits of their own?
bool isPawnEnding(PositionType type);

}  // namespace quorvane

#endif  // QUORVANE_CONFIGURATIONS_POSITION_TYPE_H_

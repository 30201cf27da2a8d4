#include "inspect/square_bits.h"

#include "configurations/square_masks.h"

namespace quorvane {

namespace {

ConfigurationWord pawnSquareBits(Square square) {
  const std::int32_t rank = rankOf(square);
  if (rank == 0 || rank == 7) return 0;
  return pawn_bits::onRelativeRank(rank) | pawn_bits::onFileFromEdge(edgeDistance(fileOf(square)));
}

ConfigurationWord minorSquareBits(Square square) {
  ConfigurationWord bits = 0;
  if (rankOf(square) >= 4) bits |= minor_bits::inOpponentsHalf;
  if (edgeDistance(fileOf(square)) == 0) bits |= minor_bits::onEdgeFile;
  return bits;
}

}  // namespace

ConfigurationWord squareBits(std::int32_t kind, Square square) {
  switch (kind) {
    case pawnKind:
      return pawnSquareBits(square);
    case knightKind:
    case bishopKind:
      return zoneMask[square] | centreMask[square] | minorSquareBits(square);
    case kingKind:
      return zoneMask[square] | ringMask[square];
    default:
      return zoneMask[square] | centreMask[square];
  }
}

}  // namespace quorvane

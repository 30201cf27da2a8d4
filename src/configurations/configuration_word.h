#ifndef QUORVANE_CONFIGURATIONS_CONFIGURATION_WORD_H_
#define QUORVANE_CONFIGURATIONS_CONFIGURATION_WORD_H_

#include <cstdint>

#include "board/types.h"

namespace quorvane {

// The bits of a configuration word. What a bit means depends on the kind of the piece;
// docs/configuration-word.md has the whole layout. "Own" and "enemy" are seen from the piece that is
// described.

inline constexpr std::int32_t configurationBits = 32;

constexpr ConfigurationWord configurationBit(std::int32_t number) {
  return ConfigurationWord{1} << number;
}

// Of every kind.
inline constexpr ConfigurationWord materialAhead = configurationBit(0);
inline constexpr ConfigurationWord materialBehind = configurationBit(1);
inline constexpr ConfigurationWord notOnMove = configurationBit(16);

// Marks that a piece of `kind` leaves on the pieces that it reaches. The marks by rook and queen on a pawn,
// and those by kings on a king, cannot occur where their bits mean something else.
constexpr ConfigurationWord attackedBy(PieceKind kind) {
  return configurationBit(3 + kind);
}
constexpr ConfigurationWord guardedBy(PieceKind kind) {
  return configurationBit(10 + kind);
}
static_assert(attackedBy(kingKind) == configurationBit(8) && guardedBy(kingKind) == configurationBit(15));

namespace pawn_bits {

inline constexpr ConfigurationWord blocked = configurationBit(2);
// In a pawn ending only.
inline constexpr ConfigurationWord outrunsEnemyKing = configurationBit(6);
inline constexpr ConfigurationWord enemyKingFirstAtPromotion = configurationBit(7);
inline constexpr ConfigurationWord enemyKingAhead = configurationBit(13);
inline constexpr ConfigurationWord ownKingBehind = configurationBit(14);

inline constexpr ConfigurationWord ownPawnOnFile = configurationBit(17);  // the pawn itself counts
inline constexpr ConfigurationWord noEnemyPawnOnFile = configurationBit(18);
inline constexpr ConfigurationWord noEnemyPawnBeside = configurationBit(19);
inline constexpr ConfigurationWord ownPawnTowardsA = configurationBit(20);
inline constexpr ConfigurationWord ownPawnTowardsH = configurationBit(21);

// 1 to 6, counted from the pawn's own side of the board, where 0 is the first rank.
constexpr ConfigurationWord onRelativeRank(std::int32_t relativeRank) {
  return configurationBit(21 + relativeRank);
}
// 0 to 3: a or h, b or g, c or f, d or e.
constexpr ConfigurationWord onFileFromEdge(std::int32_t fromEdge) {
  return configurationBit(28 + fromEdge);
}

}  // namespace pawn_bits

// Of every kind but pawns.
inline constexpr ConfigurationWord shoulderZone = configurationBit(17);
inline constexpr ConfigurationWord crossZone = configurationBit(18);
inline constexpr ConfigurationWord cornerZone = configurationBit(19);

// Of knight, bishop, rook and queen.
inline constexpr ConfigurationWord reachesBesideOwnKing = configurationBit(20);
inline constexpr ConfigurationWord reachesOneBesideEnemyKing = configurationBit(24);
inline constexpr ConfigurationWord reachesMoreBesideEnemyKing = configurationBit(25);
// 0 to 5; 5 stands for 6 as well.
constexpr ConfigurationWord atCentreDistance(std::int32_t distance) {
  return configurationBit(26 + distance);
}

namespace minor_bits {  // knight and bishop

inline constexpr ConfigurationWord inOpponentsHalf = configurationBit(21);
inline constexpr ConfigurationWord onEdgeFile = configurationBit(22);

}  // namespace minor_bits

namespace rook_bits {

inline constexpr ConfigurationWord enemyKingNearByFile = configurationBit(21);
inline constexpr ConfigurationWord enemyKingNearByRank = configurationBit(22);

}  // namespace rook_bits

namespace queen_bits {

inline constexpr ConfigurationWord enemyKingWithin2 = configurationBit(21);
inline constexpr ConfigurationWord enemyKingWithin4 = configurationBit(22);  // and no nearer than 3
inline constexpr ConfigurationWord enemyKingWithin6 = configurationBit(23);  // and no nearer than 5

}  // namespace queen_bits

namespace king_bits {

inline constexpr ConfigurationWord hardlyAnyFreeNeighbour = configurationBit(2);  // none or one
inline constexpr ConfigurationWord twoOwnPawnsBeside = configurationBit(20);      // or more
inline constexpr ConfigurationWord castled = configurationBit(27);
// 0 to 3, of the two kings; greater distances have no bit.
inline constexpr ConfigurationWord rankDistance[] = {configurationBit(8), configurationBit(15),
                                                     configurationBit(21), configurationBit(22)};
inline constexpr ConfigurationWord fileDistance[] = {configurationBit(23), configurationBit(24),
                                                     configurationBit(25), configurationBit(26)};
// 0 to 3: the edge of the board up to its four central squares.
constexpr ConfigurationWord onRing(std::int32_t ring) {
  return configurationBit(28 + ring);
}

}  // namespace king_bits

}  // namespace quorvane

#endif  // QUORVANE_CONFIGURATIONS_CONFIGURATION_WORD_H_

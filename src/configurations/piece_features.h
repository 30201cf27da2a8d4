#ifndef QUORVANE_CONFIGURATIONS_PIECE_FEATURES_H_
#define QUORVANE_CONFIGURATIONS_PIECE_FEATURES_H_

#include "board/attacks.h"
#include "board/piece_classes.h"
#include "board/square_set.h"
#include "configurations/configuration_word.h"
#include "configurations/place_bits.h"
#include "configurations/relation_bits.h"

// What a piece of each class writes into its own word, and on which pieces it leaves its mark. Whoever
// describes a position, on the board or given as sets, does so by these.

namespace quorvane {

// What a piece finds around it.
struct Surroundings {
  SquareSet occupied;
  SquareSet besideOwnKing;    // the empty squares next to its king
  SquareSet besideEnemyKing;  // and to the other one
  Square ownKing;
  Square enemyKing;
};

struct PieceFeatures {
  ConfigurationWord own;
  SquareSet reached;  // the pieces that stand there get its mark
};

// The mark that a piece of `kind` leaves on one of its own or of the other side.
constexpr ConfigurationWord markBy(PieceKind kind, bool onOwnSide) {
  static_assert(guardedBy(pawnKind) == attackedBy(pawnKind) << 7 &&
                guardedBy(kingKind) == attackedBy(kingKind) << 7);
  return attackedBy(kind) << (onOwnSide ? 7 : 0);
}

// Of knight, bishop, rook and queen.
template <PieceKind kind>
PieceFeatures featuresOf(Side side, Square square, const Surroundings& around) {
  const SquareSet reached = attacks(kind, square, around.occupied);
  ConfigurationWord own = placeBits(kind, side, square);
  own |= reachBits(reached & ~around.occupied, around.besideOwnKing, around.besideEnemyKing);
  if constexpr (kind == rookKind) own |= rookBits(square, around.enemyKing);
  if constexpr (kind == queenKind) own |= queenBits(square, around.enemyKing);
  return {own, reached};
}

// All but the distance of the kings, which is the same for both.
inline PieceFeatures kingFeatures(Side side, const Surroundings& around, SquareSet ownPawns, bool castled) {
  const SquareSet reached = attackSet[kingKind][around.ownKing];
  ConfigurationWord own = placeBits(kingKind, side, around.ownKing);
  own |= neighbourBits(around.besideOwnKing, reached & ownPawns);
  if (castled) own |= king_bits::castled;
  return {own, reached};
}

// What a pawn writes into its own word, the race in a pawn ending apart. It marks what pawnAttacks says.
constexpr ConfigurationWord pawnBits(const PawnRules& rules, Square square, SquareSet occupied,
                                     PawnFiles ownFiles, PawnFiles enemyFiles) {
  ConfigurationWord own = placeBits(pawnKind, rules.side, square);
  own |= pawnFileBits(fileOf(square), ownFiles, enemyFiles);
  if ((occupied & setOf(square + rules.ahead)) != 0) own |= pawn_bits::blocked;
  return own;
}

}  // namespace quorvane

#endif  // QUORVANE_CONFIGURATIONS_PIECE_FEATURES_H_

// What each class of pieces adds to the words of a position on the board.

#include "board/piece.h"
#include "configurations/piece_features.h"

namespace quorvane {

Surroundings Piece::surroundings() const {
  return {occupied, *ownKingReach, *enemyKingReach, kings[side]->square, kings[opponent(side)]->square};
}

void Piece::add(const PieceFeatures& features) {
  configuration |= features.own;
  mark(features.reached);
}

void Piece::mark(SquareSet reached) const {
  for (const Square at : Squares(reached & occupied)) {
    Piece& piece = *board[at];
    piece.configuration |= markBy(kind, piece.side == side);
  }
}

// The empty square's piece describes nothing.
void Piece::addConfiguration() {}

void Piece::addPawnConfiguration(const PawnRules& rules) {
  const bool isWhite = rules.side == white;
  configuration |= pawnBits(rules, square, occupied, isWhite ? whitePawnFiles : blackPawnFiles,
                            isWhite ? blackPawnFiles : whitePawnFiles);
  mark(pawnAttacks(rules.side, setOf(square)));
  if (!pawnEnding) return;
  const bool onMove = (configuration & notOnMove) == 0;
  configuration |= raceBits(rules, square, kings[side]->square, kings[opponent(side)]->square, onMove);
}

void WhitePawn::addConfiguration() {
  addPawnConfiguration(whitePawnRules);
}
void BlackPawn::addConfiguration() {
  addPawnConfiguration(blackPawnRules);
}
void Knight::addConfiguration() {
  add(featuresOf<knightKind>(side, square, surroundings()));
}
void Bishop::addConfiguration() {
  add(featuresOf<bishopKind>(side, square, surroundings()));
}
void Rook::addConfiguration() {
  add(featuresOf<rookKind>(side, square, surroundings()));
}
void Queen::addConfiguration() {
  add(featuresOf<queenKind>(side, square, surroundings()));
}

void King::addConfiguration() {
  *ownKingReach = attackSet[kingKind][square] & ~occupied;
  add(kingFeatures(side, surroundings(), squaresOf[side][pawnKind], castled));
}

}  // namespace quorvane

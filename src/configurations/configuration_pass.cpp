#include "configurations/configuration_pass.h"

#include "board/piece.h"
#include "board/ring.h"
#include "configurations/configuration_word.h"
#include "configurations/relation_bits.h"

namespace quorvane {

void ConfigurationPass::computeConfigurations() {
  Piece* const movingKing = kings[currentMove.sideToMove];
  Piece* const opposingKing = kings[opponent(currentMove.sideToMove)];

  whitePawnFiles = filesOf(squaresOf[white][pawnKind]);
  blackPawnFiles = filesOf(squaresOf[black][pawnKind]);
  occupied = squaresOf.ofSide(white) | squaresOf.ofSide(black);

  // Every word is reset before the first call of addConfiguration: pieces leave marks on each other in any
  // order.
  std::int32_t balance = 0;
  for (Piece& piece : Ring(movingKing)) {
    balance += piece.material;
    piece.configuration = 0;
  }
  for (Piece& piece : Ring(opposingKing)) {
    balance -= piece.material;
    piece.configuration = notOnMove;
  }

  // A king fills the map of its neighbour squares before any piece reads it.
  movingKingReach = 0;
  opposingKingReach = 0;
  const auto describe = [](Piece& piece, ConfigurationWord material) {
    piece.configuration |= material;
    piece.addConfiguration();
  };
  ownKingReach = &opposingKingReach;
  enemyKingReach = &opposingKingReach;
  describe(*opposingKing, materialBit(-balance));

  ownKingReach = &movingKingReach;
  for (Piece& piece : Ring(movingKing)) describe(piece, materialBit(balance));

  ownKingReach = &opposingKingReach;
  enemyKingReach = &movingKingReach;
  for (Piece& piece : Ring(opposingKing)) {
    if (&piece != opposingKing) describe(piece, materialBit(-balance));
  }

  const ConfigurationWord distance = kingDistanceBits(movingKing->square, opposingKing->square);
  movingKing->configuration |= distance;
  opposingKing->configuration |= distance;
}

}  // namespace quorvane

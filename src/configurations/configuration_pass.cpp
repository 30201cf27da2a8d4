#include "configurations/configuration_pass.h"

#include <cstdlib>

#include "board/piece.h"
#include "board/ring.h"
#include "configurations/configuration_word.h"

namespace quorvane {

namespace {

// A side leads in material from here on, in thousandths of a pawn.
constexpr std::int32_t materialMargin = 500;

constexpr ConfigurationWord materialBit(std::int32_t balance) {
  if (balance > materialMargin) return materialAhead;
  return balance < -materialMargin ? materialBehind : 0;
}

}  // namespace

void ConfigurationPass::computeConfigurations() {
  Piece* const movingKing = kings[currentMove.sideToMove];
  Piece* const opposingKing = kings[opponent(currentMove.sideToMove)];

  // Every word is reset before the first call of addConfiguration: pieces leave marks on each other in any
  // order.
  whitePawnFiles = {};
  blackPawnFiles = {};
  const auto countPawn = [](const Piece& piece) {
    if (piece.kind == pawnKind)
      ++(piece.side == white ? whitePawnFiles : blackPawnFiles)[fileOf(piece.square) + 1];
  };
  std::int32_t balance = 0;
  for (Piece& piece : Ring(movingKing)) {
    balance += piece.material;
    piece.configuration = 0;
    countPawn(piece);
  }
  for (Piece& piece : Ring(opposingKing)) {
    balance -= piece.material;
    piece.configuration = notOnMove;
    countPawn(piece);
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

  const std::int32_t ranks = std::abs(rankOf(movingKing->square) - rankOf(opposingKing->square));
  const std::int32_t files = std::abs(fileOf(movingKing->square) - fileOf(opposingKing->square));
  ConfigurationWord distance = 0;
  if (ranks <= 3) distance |= king_bits::rankDistance[ranks];
  if (files <= 3) distance |= king_bits::fileDistance[files];
  movingKing->configuration |= distance;
  opposingKing->configuration |= distance;
}

}  // namespace quorvane

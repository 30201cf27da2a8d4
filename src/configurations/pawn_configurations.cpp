#include "board/piece.h"
#include "board/piece_classes.h"
#include "configurations/configuration_word.h"
#include "configurations/place_bits.h"
#include "configurations/relation_bits.h"

namespace quorvane {

void Piece::addPawnConfiguration(const PawnRules& rules) {
  const std::int32_t file = fileOf(square);

  const auto cover = [this](Square covered) {
    Piece& piece = *board[covered];
    if (piece.kind == emptyKind) return;
    piece.configuration |= piece.side == side ? guardedBy(pawnKind) : attackedBy(pawnKind);
  };
  if (file != rules.firstCaptureEdge) cover(square + rules.firstCapture);
  if (file != rules.secondCaptureEdge) cover(square + rules.secondCapture);

  if (board[square + rules.ahead]->kind != emptyKind) configuration |= pawn_bits::blocked;

  const PawnFiles& ownFiles = side == white ? whitePawnFiles : blackPawnFiles;
  const PawnFiles& enemyFiles = side == white ? blackPawnFiles : whitePawnFiles;
  configuration |= pawnFileBits(
      file, [&](std::int32_t at) { return ownFiles[at] != 0; },
      [&](std::int32_t at) { return enemyFiles[at] != 0; });
  configuration |= placeBits(pawnKind, side, square);
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

}  // namespace quorvane

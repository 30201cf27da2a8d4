#include "board/pseudo_legal_moves.h"

#include "board/piece.h"
#include "board/ring.h"

namespace quorvane {

namespace {

struct Generation : public Board {
  // Of those pieces of the side to move that `takes` names.
  template <typename Takes>
  static std::span<const MoveRecord> of(Takes takes) {
    MoveList list{moveBuffer, 0};
    activeMoveList = &list;
    for (Piece& piece : Ring(kings[currentMove.sideToMove])) {
      if (takes(piece)) piece.generateMoves();
    }
    activeMoveList = nullptr;
    return {moveBuffer, list.cursor};
  }
};

}  // namespace

std::span<const MoveRecord> PseudoLegalMoves::of(const Piece& piece) {
  return Generation::of([&](const Piece& other) { return &other == &piece; });
}

std::span<const MoveRecord> PseudoLegalMoves::of(PieceKind kind) {
  return Generation::of([=](const Piece& piece) { return piece.kind == kind; });
}

std::span<const MoveRecord> PseudoLegalMoves::all() {
  return Generation::of([](const Piece&) { return true; });
}

bool PseudoLegalMoves::makeIfLegal(const MoveRecord& move) {
  currentMove = move;
  makeMove();
  const bool legal = !kings[opponent(currentMove.sideToMove)]->isAttacked();
  if (!legal) unmakeMove();
  return legal;
}

bool PseudoLegalMoves::isLegal(const MoveRecord& move) {
  const MoveRecord saved = currentMove;
  const bool legal = makeIfLegal(move);
  if (legal) unmakeMove();
  currentMove = saved;
  return legal;
}

}  // namespace quorvane

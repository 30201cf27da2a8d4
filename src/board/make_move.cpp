#include <cassert>

#include "board/board.h"
#include "board/hash_state.h"
#include "board/piece.h"

namespace quorvane {

namespace {

void takeOutOfRing(Piece* piece) {
  piece->prev->next = piece->next;
  piece->next->prev = piece->prev;
}

// Right only if everything that happened to the ring since the piece left it has been undone.
void putBackIntoRing(Piece* piece) {
  piece->prev->next = piece;
  piece->next->prev = piece;
}

}  // namespace

void Board::makeMove() {
  const Square from = currentMove.from;
  const Square to = currentMove.to;
  Piece* const target = board[to];
  Piece* const mover = board[from];
  assert(mover->side == currentMove.sideToMove && target->side != mover->side && target->kind != kingKind);
  assert(currentMove.kind <= promoteToRook || currentMove.kind == doubleStep);
  assert(history->depth + 1 < historyCapacity);

  hashState->pushKeys();
  if (target->kind != emptyKind) {
    hashState->toggleKey(to, target->keyIndex);
    toggleSquares(target, setOf(to));
    takeOutOfRing(target);
  }
  UndoRecord& undo = history->record(++history->depth);
  // The empty square's piece is counted like any other; unmakeMove counts it down again.
  ++target->moveCount;
  ++mover->moveCount;
  undo.fromSquare = from;
  undo.movedPiece = mover;
  undo.toSquare = to;
  undo.capturedPiece = target;
  undo.undoKind = currentMove.kind == doubleStep ? ordinaryMove : currentMove.kind;
  undo.enPassantBefore = enPassantSquare;
  enPassantSquare = currentMove.kind == doubleStep ? (from + to) >> 1 : noSquare;
  mover->stepTo(to);
  hashState->toggleKey(from, mover->keyIndex);
  hashState->toggleKey(to, mover->keyIndex);

  if (isCastling(undo.undoKind)) {
    moveCastlingRook(undo);
  } else if (undo.undoKind == enPassantCapture) {
    captureEnPassant(undo);
  } else if (undo.undoKind >= promoteToQueen) {
    hashState->toggleKey(to, mover->keyIndex);
    undo.auxPiece = mover;
    undo.movedPiece = Piece::make(promotedKind(undo.undoKind), 0, 0, 0, mover);
    hashState->toggleKey(to, undo.movedPiece->keyIndex);
  }
  currentMove.sideToMove = static_cast<std::uint8_t>(opponent(currentMove.sideToMove));
  opposingKingIsSafe = false;
  hashState->recordPosition();
}

void Board::moveCastlingRook(UndoRecord& undo) {
  const bool kingSide = undo.undoKind == castleKingSide;
  static_cast<King*>(undo.movedPiece)->castled = true;
  undo.auxFrom = undo.fromSquare + stepToCastlingRook(kingSide);
  undo.auxTo = undo.fromSquare + (kingSide ? 1 : -1);
  Piece* const rook = board[undo.auxFrom];
  assert(rook->kind == rookKind);
  undo.auxPiece = rook;
  rook->stepTo(undo.auxTo);
  ++rook->moveCount;
  hashState->toggleKey(undo.auxFrom, rook->keyIndex);
  hashState->toggleKey(undo.auxTo, rook->keyIndex);
}

void Board::captureEnPassant(UndoRecord& undo) {
  undo.auxFrom = undo.toSquare + (undo.movedPiece->side == white ? -8 : 8);
  Piece* const victim = board[undo.auxFrom];
  assert(victim->kind == pawnKind && victim->side == opponent(undo.movedPiece->side));
  undo.auxPiece = victim;
  hashState->toggleKey(undo.auxFrom, victim->keyIndex);
  toggleSquares(victim, setOf(undo.auxFrom));
  takeOutOfRing(victim);
  board[undo.auxFrom] = EmptySquare;
}

void Board::unmakeMove() {
  assert(history->depth > 0);
  hashState->forgetPosition();
  hashState->popKeys();
  const UndoRecord& undo = history->record(history->depth);
  Piece* const mover = undo.movedPiece;
  Piece* const captured = undo.capturedPiece;
  mover->stepTo(undo.fromSquare);
  board[undo.toSquare] = captured;
  if (captured->kind != emptyKind) {
    toggleSquares(captured, setOf(undo.toSquare));
    putBackIntoRing(captured);
  }
  captured->square = undo.toSquare;
  --mover->moveCount;
  --captured->moveCount;
  enPassantSquare = undo.enPassantBefore;

  if (isCastling(undo.undoKind)) {
    static_cast<King*>(mover)->castled = false;
    undo.auxPiece->stepTo(undo.auxFrom);
    --undo.auxPiece->moveCount;
  } else if (undo.undoKind == enPassantCapture) {
    board[undo.auxFrom] = undo.auxPiece;
    undo.auxPiece->square = undo.auxFrom;
    toggleSquares(undo.auxPiece, setOf(undo.auxFrom));
    putBackIntoRing(undo.auxPiece);
  } else if (undo.undoKind >= promoteToQueen) {
    undoPromotion();
  }
  currentMove.sideToMove = static_cast<std::uint8_t>(opponent(currentMove.sideToMove));
  opposingKingIsSafe = false;
  --history->depth;
}

void Board::undoPromotion() {
  const UndoRecord& undo = history->record(history->depth);
  Piece* const promoted = undo.movedPiece;
  Piece* const pawn = undo.auxPiece;
  pieceById[promoted->id] = pawn;
  board[promoted->square] = pawn;
  pawn->square = promoted->square;
  toggleSquares(promoted, setOf(pawn->square));
  toggleSquares(pawn, setOf(pawn->square));
  --pawn->moveCount;
  pawn->next = promoted->next;
  pawn->prev = promoted->prev;
  putBackIntoRing(pawn);
  Piece::release(promoted);
}

}  // namespace quorvane

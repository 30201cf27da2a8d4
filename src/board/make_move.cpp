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

// The new piece takes the place of `pawn`; null if `kind` is no promotion.
Piece* promote(MoveKind kind, Piece* pawn) {
  switch (kind) {
    case promoteToQueen:
      return new Queen(0, 0, 0, pawn);
    case promoteToKnight:
      return new Knight(0, 0, 0, pawn);
    case promoteToBishop:
      return new Bishop(0, 0, 0, pawn);
    case promoteToRook:
      return new Rook(0, 0, 0, pawn);
    default:
      return nullptr;
  }
}

}  // namespace

void Board::makeMove() {
  const Square from = currentMove.from;
  const Square to = currentMove.to;
  Piece* const target = board[to];
  Piece* const mover = board[from];

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
  undo.enPassantBefore = enPassantSquare;
  enPassantSquare = noSquare;
  mover->square = to;
  board[to] = mover;
  board[from] = EmptySquare;
  toggleSquares(mover, setOf(from) | setOf(to));
  hashState->toggleKey(from, mover->keyIndex);
  hashState->toggleKey(to, mover->keyIndex);

  switch (currentMove.kind) {
    case doubleStep:
      enPassantSquare = (from + to) >> 1;
      undo.undoKind = ordinaryMove;
      break;
    case castleQueenSide:
    case castleKingSide: {
      const bool kingSide = currentMove.kind == castleKingSide;
      static_cast<King*>(kings[currentMove.sideToMove])->castled = true;
      undo.undoKind = currentMove.kind;
      undo.auxFrom = from + (kingSide ? 3 : -4);
      undo.auxTo = from + (kingSide ? 1 : -1);
      Piece* const rook = board[undo.auxFrom];
      undo.auxPiece = rook;
      board[undo.auxTo] = rook;
      board[undo.auxFrom] = EmptySquare;
      rook->square = undo.auxTo;
      toggleSquares(rook, setOf(undo.auxFrom) | setOf(undo.auxTo));
      ++rook->moveCount;
      hashState->toggleKey(undo.auxFrom, rook->keyIndex);
      hashState->toggleKey(undo.auxTo, rook->keyIndex);
      break;
    }
    case enPassantCapture: {
      undo.undoKind = enPassantCapture;
      undo.auxFrom = mover->side == white ? to - 8 : to + 8;
      Piece* const victim = board[undo.auxFrom];
      hashState->toggleKey(undo.auxFrom, victim->keyIndex);
      undo.auxPiece = victim;
      toggleSquares(victim, setOf(undo.auxFrom));
      takeOutOfRing(victim);
      board[undo.auxFrom] = EmptySquare;
      break;
    }
    case promoteToQueen:
    case promoteToKnight:
    case promoteToBishop:
    case promoteToRook:
      undo.undoKind = currentMove.kind;
      hashState->toggleKey(to, mover->keyIndex);
      undo.auxPiece = mover;
      undo.movedPiece = promote(currentMove.kind, mover);
      hashState->toggleKey(to, undo.movedPiece->keyIndex);
      break;
    case ordinaryMove:
    case ownPieceOnLine:  // never made
      undo.undoKind = ordinaryMove;
      break;
  }

  currentMove.sideToMove = static_cast<std::uint8_t>(opponent(currentMove.sideToMove));
  opposingKingIsSafe = false;
  hashState->recordPosition();
}

void Board::unmakeMove() {
  hashState->forgetPosition();
  hashState->popKeys();
  const UndoRecord& undo = history->record(history->depth);
  Piece* const mover = undo.movedPiece;
  Piece* const captured = undo.capturedPiece;
  board[undo.fromSquare] = mover;
  board[undo.toSquare] = captured;
  toggleSquares(mover, setOf(undo.fromSquare) | setOf(undo.toSquare));
  if (captured->kind != emptyKind) {
    toggleSquares(captured, setOf(undo.toSquare));
    putBackIntoRing(captured);
  }
  mover->square = undo.fromSquare;
  captured->square = undo.toSquare;
  --mover->moveCount;
  --captured->moveCount;
  enPassantSquare = undo.enPassantBefore;

  switch (undo.undoKind) {
    case castleQueenSide:
    case castleKingSide: {
      Piece* const rook = undo.auxPiece;
      static_cast<King*>(kings[opponent(currentMove.sideToMove)])->castled = false;
      board[undo.auxFrom] = rook;
      board[undo.auxTo] = EmptySquare;
      rook->square = undo.auxFrom;
      toggleSquares(rook, setOf(undo.auxFrom) | setOf(undo.auxTo));
      --rook->moveCount;
      break;
    }
    case enPassantCapture:
      board[undo.auxFrom] = undo.auxPiece;
      undo.auxPiece->square = undo.auxFrom;
      toggleSquares(undo.auxPiece, setOf(undo.auxFrom));
      putBackIntoRing(undo.auxPiece);
      break;
    case promoteToQueen:
    case promoteToKnight:
    case promoteToBishop:
    case promoteToRook:
      undoPromotion();
      break;
    default:
      break;
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

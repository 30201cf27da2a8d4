#include "board/board.h"

#include "board/hash_state.h"
#include "board/piece.h"

namespace quorvane {

Piece* Board::board[squareCount + 1];
Piece* Board::pieceById[pieceIdCount];
Piece* Board::kings[2];
PieceSets Board::squaresOf;
MoveRecord Board::currentMove;
MoveRecord* Board::moveBuffer = nullptr;
MoveList* Board::activeMoveList = nullptr;
HistoryStack* Board::history = nullptr;
HashState* Board::hashState = nullptr;
Square Board::enPassantSquare = noSquare;
PositionType Board::positionType = lastPositionType;
bool Board::pawnEnding = false;
PawnFiles Board::whitePawnFiles;
PawnFiles Board::blackPawnFiles;
SquareSet Board::movingKingReach;
SquareSet Board::opposingKingReach;
SquareSet* Board::ownKingReach = nullptr;
SquareSet* Board::enemyKingReach = nullptr;
SquareSet Board::occupied;
bool Board::opposingKingIsSafe = false;
bool Board::singletonsExist = false;

Board::Board() {
  if (singletonsExist) return;
  singletonsExist = true;  // first: HashState is a Board itself
  hashState = new HashState;
  history = new HistoryStack;
  history->depth = 0;
  moveBuffer = new MoveRecord[moveBufferSize];
  positionType = lastPositionType;
  pawnEnding = false;
  activeMoveList = nullptr;
}

void Board::clearPosition() {
  while (history->depth > 0) unmakeMove();
  for (Piece*& piece : pieceById) {
    if (piece != nullptr) Piece::release(piece);
    piece = nullptr;
  }
}

void Board::releaseBoard() {
  singletonsExist = false;
  clearPosition();
  Piece::releaseStorage();
  delete hashState;
  delete history;
  delete[] moveBuffer;
  hashState = nullptr;
  history = nullptr;
  moveBuffer = nullptr;
}

}  // namespace quorvane

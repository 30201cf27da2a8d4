#ifndef QUORVANE_BOARD_BOARD_H_
#define QUORVANE_BOARD_BOARD_H_

#include <cstdint>

#include "board/decoded_move.h"
#include "board/pawn_files.h"
#include "board/piece_sets.h"
#include "board/records.h"
#include "board/types.h"

namespace quorvane {

class HashState;
class Placement;

// The one chess position of the process.
//
// Everything here is static: a class that works on the position derives from Board and reaches the members
// directly, and no function passes a position around. The first Board constructed builds the singletons
// (`hashState`, `history`, `moveBuffer`); setupPosition puts a position on the board and may be
// called any number of times; releaseBoard ends it all. Between set-ups only makeMove and unmakeMove change
// the position; generators and tests use `currentMove` and `activeMoveList` as scratch. `pieceById` owns the
// pieces, captured ones included; every other piece pointer only refers. One thread, no locks.
class Board {
 public:
  // Builds the singletons on the first run, does nothing on later ones.
  Board();

  // Puts a start position on the board: pieces as `placement` has them, with ids in its order, none of them
  // moved, `side` to move. At most piecesPerSide a side, one king each, no two on one square, no pawn on its
  // last rank.
  static void setupPosition(const Placement& placement, Side side);

  // Takes back every made move and releases all pieces; `pieceById` then holds null only.
  static void clearPosition();

  // Ends the board: clears the position and frees the singletons.
  static void releaseBoard();

  // Plays `from`, `to`, `kind` of `currentMove`, a move of the generators, and flips its `sideToMove`. Tests
  // neither legality nor depth: the caller stays below historyCapacity.
  static void makeMove();

  // Takes back the last made move exactly; the depth must be above 0.
  static void unmakeMove();

  // Makes the first generated move of the side's pieces of the move's kind that fits its ranks and files. A
  // promotion of 1 to 4 makes it a promotion to that kind, any other value leaves it as generated. False,
  // with the position unchanged, if the game is too deep (status 2), the side not to move stands in check
  // (status 7), no move fits, a king would be promoted, or the mover's king would stand attacked.
  static bool playGameMove(const DecodedMove& move);

 protected:
  // Ids run down from here: white 15 to 0, black 31 to 16.
  static constexpr std::int32_t firstWhiteId = piecesPerSide - 1;
  static constexpr std::int32_t firstBlackId = 2 * piecesPerSide - 1;
  static constexpr std::int32_t emptySquareId = 2 * piecesPerSide;
  static constexpr std::int32_t pieceIdCount = emptySquareId + 1;
  // No piece has more moves than a queen in the middle of an empty board.
  static constexpr std::int32_t moveBufferSize = piecesPerSide * 27;

  static Piece* board[squareCount + 1];  // never null after a set-up; [noSquare] is not on the board
  // The one piece that fills every free square.
  static constexpr Piece*& EmptySquare = board[noSquare];
  static Piece* pieceById[pieceIdCount];
  static Piece* kings[2];  // by Side; the anchors of the rings
  // Where the pieces in the rings stand: `board` once more, for a search by kind and for their attacks.
  static PieceSets squaresOf;
  // Enters a piece in squaresOf on those of the squares where it was not, and takes it off the others.
  static inline void toggleSquares(const Piece* piece, SquareSet squares);
  static MoveRecord currentMove;    // the working record; home of `sideToMove`
  static MoveRecord* moveBuffer;    // moveBufferSize records, which no position that fits the model exceeds
  static MoveList* activeMoveList;  // where the generators write; a local of the operation that generates
  static HistoryStack* history;
  static HashState* hashState;
  static Square enPassantSquare;     // the square a pawn has just jumped over, or noSquare
  static PositionType positionType;  // written by the classifier
  static bool pawnEnding;            // kings and pawns only; written by the classifier

  // Working storage of ConfigurationPass::computeConfigurations, valid only while it runs.
  static PawnFiles whitePawnFiles;
  static PawnFiles blackPawnFiles;
  static SquareSet movingKingReach;    // the empty squares next to the king of the side to move
  static SquareSet opposingKingReach;  // the same for the other king
  static SquareSet* ownKingReach;      // as seen from the piece that is being described
  static SquareSet* enemyKingReach;
  static SquareSet occupied;  // the squares of all pieces

 private:
  // Steps of makeMove and unmakeMove, on the record of the move.
  static void moveCastlingRook(UndoRecord& undo);
  static void captureEnPassant(UndoRecord& undo);
  static void undoPromotion();
  // Puts the first fitting move into currentMove; false if there is none.
  static bool findMove(const DecodedMove& wanted);
  // The same among the moves to one square.
  static bool findMoveTo(Square to, const DecodedMove& wanted);

  // True only while it is known that the king of the side not to move stands unattacked.
  static bool opposingKingIsSafe;
  static bool singletonsExist;
};

}  // namespace quorvane

#endif  // QUORVANE_BOARD_BOARD_H_

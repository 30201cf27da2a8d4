#ifndef QUORVANE_BOARD_PIECE_H_
#define QUORVANE_BOARD_PIECE_H_

#include <cstddef>
#include <cstdint>

#include "board/board.h"
#include "board/piece_classes.h"
#include "board/types.h"

namespace quorvane {

struct PieceFeatures;
struct Surroundings;

// A piece of the position; Piece itself serves as the one object that fills every empty square.
//
// The pieces of a side on the board form a ring through `prev` and `next`, in rising order of their ids, with
// exactly one king, Board::kings[side]. A captured piece leaves the ring but keeps its own links, which is
// what taking the move back needs. Pieces have no destructor work: Piece::release gives back their storage.
//
// The virtual operations have no arguments: they talk through Board::currentMove and Board::activeMoveList.
// testMove, generateMoves and generateCaptures are defined in board/piece_moves.cpp, pawn_moves.cpp and
// king_moves.cpp, addConfiguration in configurations/piece_configurations.cpp.
class Piece : public Board {
 public:
  // The empty square's piece: side noSide, square noSquare, id 32.
  Piece(Side newSide, Square newSquare, std::int32_t newId, Piece* copyFrom)
      : Piece(emptySquareClass, newSide, newSquare, newId, copyFrom) {}
  // A new piece of a kind that stands on a board, with the arguments of the constructors: those of a piece
  // that opens or joins the ring of its side, or `copyFrom`, a piece whose place the new one takes; the
  // others are then ignored.
  static Piece* make(PieceKind kind, Side side, Square square, std::int32_t id, Piece* copyFrom);

  // Can this piece go to `to`, its own king's safety apart? Sets `found` and `kind` of currentMove.
  virtual void testMove();
  // Appends the pseudo-legal moves to the active list; gives how many.
  virtual std::int32_t generateMoves() { return generateRays(everyMove); }
  // Appends the captures of opposing pieces (and a pawn's step to its last rank); en passant is left out.
  virtual void generateCaptures() { generateRays(capturesOnly); }
  // Writes the features of this piece into `configuration` and its marks into the words of the pieces it
  // reaches. Only ORs; called by ConfigurationPass::computeConfigurations only.
  virtual void addConfiguration();

  // True if a piece of the other side could take this piece where it stands. Leaves currentMove as it was.
  bool isAttacked();

  // Goes to another square, where no piece stands any more, and leaves its own empty.
  void stepTo(Square to) {
    board[square] = EmptySquare;
    board[to] = this;
    toggleSquares(this, setOf(square) | setOf(to));
    square = to;
  }

  // Frees a piece made by `new`. Its links and the entries that refer to it are the caller's.
  static void release(Piece* piece);

  // Pieces of all classes share a pool of storage; releaseStorage empties it.
  static void* operator new(std::size_t size);
  static void operator delete(void* piece);
  static void releaseStorage();

  std::int32_t keyIndex;  // column in the key tables: 0 to 5 black, 6 to 11 white, 12 the empty square
  const std::int32_t* directions;  // mailbox steps in the order of generation, ended by noSquare
  Piece* prev;
  Piece* next;
  std::int32_t id;         // index in pieceById; a promoted piece takes that of its pawn
  Square square;           // a captured piece keeps the square on which it was taken
  std::int32_t moveCount;  // made moves that touched the piece; 0 means that it may castle
  PieceKind kind;
  Side side;
  std::int32_t material;  // thousandths of a pawn
  ConfigurationWord configuration = 0;

 protected:
  // A new piece of `pieceClass` on `square`, linked into its ring, or, with `copyFrom`, one that takes that
  // piece's place on the board, in pieceById and in the ring; the other arguments are then ignored.
  Piece(const PieceClass& pieceClass, Side side, Square square, std::int32_t id, Piece* copyFrom);

  // What a generator is asked for.
  enum Wanted { everyMove, capturesOnly };

  // Copies currentMove, with `found` set, into the active list.
  static void emit();

  // testMove along an open diagonal or an open rank or file; `kind` becomes ownPieceOnLine if only the piece
  // at the end is in the way.
  void testDiagonal();
  void testStraight();
  // The same once it is known that repeated steps of square numbers by `step` lead to `to`.
  void testLine(Square step);

  // Along each direction up to the edge or the first piece, and one step, of knight and king. Like the next,
  // these give the number of moves.
  std::int32_t generateRays(Wanted wanted);
  std::int32_t generateSteps(Wanted wanted);

  // Both pawn classes are these, each with the rules of its side.
  void testPawnMove(const PawnRules& rules);
  std::int32_t generatePawnMoves(const PawnRules& rules, Wanted wanted);
  void addPawnConfiguration(const PawnRules& rules);

  // What the working storage of the pass holds, as this piece sees it.
  Surroundings surroundings() const;
  // Writes features into the word of this piece, and its marks into those of others.
  void add(const PieceFeatures& features);
  void mark(SquareSet reached) const;
};

inline void Board::toggleSquares(const Piece* piece, SquareSet squares) {
  squaresOf[piece->side][piece->kind] ^= squares;
}

class WhitePawn : public Piece {
 public:
  WhitePawn(Side newSide, Square newSquare, std::int32_t newId, Piece* copyFrom)
      : Piece(whitePawnClass, newSide, newSquare, newId, copyFrom) {}
  void testMove() override { testPawnMove(whitePawnRules); }
  std::int32_t generateMoves() override { return generatePawnMoves(whitePawnRules, everyMove); }
  void generateCaptures() override { generatePawnMoves(whitePawnRules, capturesOnly); }
  void addConfiguration() override;
};

class BlackPawn : public Piece {
 public:
  BlackPawn(Side newSide, Square newSquare, std::int32_t newId, Piece* copyFrom)
      : Piece(blackPawnClass, newSide, newSquare, newId, copyFrom) {}
  void testMove() override { testPawnMove(blackPawnRules); }
  std::int32_t generateMoves() override { return generatePawnMoves(blackPawnRules, everyMove); }
  void generateCaptures() override { generatePawnMoves(blackPawnRules, capturesOnly); }
  void addConfiguration() override;
};

class Knight : public Piece {
 public:
  Knight(Side newSide, Square newSquare, std::int32_t newId, Piece* copyFrom)
      : Piece(knightClass, newSide, newSquare, newId, copyFrom) {}
  void testMove() override;
  std::int32_t generateMoves() override { return generateSteps(everyMove); }
  void generateCaptures() override { generateSteps(capturesOnly); }
  void addConfiguration() override;
};

class Bishop : public Piece {
 public:
  Bishop(Side newSide, Square newSquare, std::int32_t newId, Piece* copyFrom)
      : Piece(bishopClass, newSide, newSquare, newId, copyFrom) {}
  void testMove() override;
  void addConfiguration() override;
};

class Rook : public Piece {
 public:
  Rook(Side newSide, Square newSquare, std::int32_t newId, Piece* copyFrom)
      : Piece(rookClass, newSide, newSquare, newId, copyFrom) {}
  void testMove() override;
  void addConfiguration() override;
};

class Queen : public Piece {
 public:
  Queen(Side newSide, Square newSquare, std::int32_t newId, Piece* copyFrom)
      : Piece(queenClass, newSide, newSquare, newId, copyFrom) {}
  void testMove() override;
  void addConfiguration() override;
};

class King : public Piece {
 public:
  King(Side newSide, Square newSquare, std::int32_t newId, Piece* copyFrom)
      : Piece(kingClass, newSide, newSquare, newId, copyFrom) {}
  void testMove() override;
  std::int32_t generateMoves() override;
  void generateCaptures() override { generateSteps(capturesOnly); }
  void addConfiguration() override;

  // The castling part of testMove: may the king go two files by steps of `direction`, +1 or -1? Moves the
  // king on the board for a moment.
  void testCastling(Square direction);

  bool castled = false;  // its side has castled on the line of play
};

}  // namespace quorvane

#endif  // QUORVANE_BOARD_PIECE_H_

#ifndef QUORVANE_PLAY_POSITION_POSITION_H_
#define QUORVANE_PLAY_POSITION_POSITION_H_

#include <cstdint>
#include <stdexcept>
#include <string>
#include <string_view>

#include "board/attacks.h"
#include "configurations/position_words.h"
#include "play/position/move.h"

namespace quorvane::play {

// What was given is no position of chess. The text is one line, a sentence without its subject: "has 7 ranks
// instead of 8".
class BadPosition : public std::runtime_error {
  using std::runtime_error::runtime_error;
};

// A position of chess with all that decides which moves are legal and which games are drawn.
//
// Games are learned from on the Board, of which there is one per process, with pieces that are objects and a
// history of its own: it takes castling rights from who has moved rather than from a FEN, counts no moves
// towards a draw, and its keys leave out who is to move. A search wants all of these, several positions at
// once and moves that cost little, so it has this value, which is copied instead of moves being taken back.
// How pieces move and attack stands once all the same: this class has it from attacks.h, and pieces as sets
// as PositionSets has them, which is what an evaluation asks for.
class Position : public PositionSets {
 public:
  Position() : Position(usualStart) {}
  // Of a FEN or an EPD: strictly the first four fields, of which the third and the fourth may be missing;
  // what stands in place of the two counts and is no number is 0 and 1. Castling rights without their king
  // and rook, and an en passant square without a capture, are dropped. Throws BadPosition.
  explicit Position(std::string_view fen);

  static constexpr std::string_view usualStart = "rnbqkbnr/pppppppp/8/8/8/8/PPPPPPPP/RNBQKBNR w KQkq - 0 1";

  // The en passant square stands in it where a pawn can take there.
  std::string fen() const;

  // Makes a legal move.
  void make(Move move);

  PieceKind kindAt(Square square) const { return static_cast<PieceKind>(kinds[square]); }
  SquareSet occupied() const { return all[black] | all[white]; }
  SquareSet ofSide(Side side) const { return all[side]; }
  bool inCheck() const { return checkers != 0; }
  bool mayCastle(Side side, bool kingSide) const { return (rights & rightOf(side, kingSide)) != 0; }

  // The pieces of a side that attack a square when these squares are occupied.
  SquareSet attackers(Side side, Square square, SquareSet whenOccupied) const;
  bool isAttacked(Side by, Square square) const { return attackers(by, square, occupied()) != 0; }

  // Does a move that was generated leave the own king unattacked?
  bool isLegal(Move move) const;
  bool takes(Move move) const { return kindAt(move.to) != emptyKind || move.kind == enPassantCapture; }

  // Can neither side mate by any moves: bare kings, with one knight at most, or with bishops of one colour?
  bool hasTooLittleMaterial() const;

  Square enPassant = noSquare;  // where a pawn can legally take in passing
  std::int32_t halfmoves = 0;   // since the last capture or move of a pawn
  std::int32_t moveNumber = 1;
  std::uint64_t key = 0;

 private:
  static constexpr std::uint8_t rightOf(Side side, bool kingSide) {
    return static_cast<std::uint8_t>(1 << (2 * side + (kingSide ? 1 : 0)));
  }
  void put(Side side, PieceKind kind, Square square);
  void takeOff(Side side, Square square);
  void readRights(std::string_view field);
  void readCounts(std::string_view text);
  // Notes that a pawn has just jumped over the square, if it can be taken there.
  void allowEnPassant(Square jumpedOver);
  void findCheckers();

  Table<std::uint8_t, squareCount> kinds;  // PieceKind
  Table<SquareSet, 2> all{};
  SquareSet checkers = 0;   // of the king of the side to move
  std::uint8_t rights = 0;  // to castle
};

// The moves of the side to move, the king's safety apart; of captures and promotions to a queen alone if
// `forcing`.
void generateMoves(const Position& position, bool forcing, MoveList& moves);

// In the order of generation.
MoveList legalMoves(const Position& position);

// How many sequences of so many legal moves there are.
std::uint64_t perft(const Position& position, std::int32_t depth);

}  // namespace quorvane::play

#endif  // QUORVANE_PLAY_POSITION_POSITION_H_

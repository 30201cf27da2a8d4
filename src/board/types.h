#ifndef QUORVANE_BOARD_TYPES_H_
#define QUORVANE_BOARD_TYPES_H_

#include <cstdint>

#include "board/exact_arithmetic.h"

namespace quorvane {

// a1 = 0, h1 = 7, a8 = 56, h8 = 63.
using Square = std::int32_t;
inline constexpr Square noSquare = 64;
inline constexpr Square squareCount = 64;

// 0 to 7, rank 1 and the a-file being 0.
constexpr std::int32_t rankOf(Square square) {
  return square >> 3;
}
constexpr std::int32_t fileOf(Square square) {
  return square & 7;
}
constexpr Square squareAt(std::int32_t rank, std::int32_t file) {
  return rank * 8 + file;
}

using Side = std::int32_t;
inline constexpr Side black = 0;
inline constexpr Side white = 1;
// The side of the empty square: unequal to both.
inline constexpr Side noSide = 2;
// The other side of black or white.
constexpr Side opponent(Side side) {
  return 1 - side;
}
// A rank as the side counts it: 0 is its own first rank. Gives back the rank from its relative one too.
constexpr std::int32_t relativeRank(Side side, std::int32_t rank) {
  return side == white ? rank : 7 - rank;
}
// No side ever has more, and the board has room for no more.
inline constexpr std::int32_t piecesPerSide = 16;

enum PieceKind : std::int32_t {
  pawnKind = 0,
  knightKind = 1,
  bishopKind = 2,
  rookKind = 3,
  queenKind = 4,
  kingKind = 5,
  emptyKind = 6
};
// The kinds that stand on a board; each has its own pattern lists.
inline constexpr std::int32_t pieceKindCount = 6;

enum MoveKind : std::int32_t {
  ordinaryMove = 0,
  castleQueenSide = 1,  // king two files towards a, rook from four files to one file towards a
  castleKingSide = 2,   // king two files towards h, rook from three files to one file towards h
  enPassantCapture = 3,
  promoteToQueen = 4,
  promoteToKnight = 5,
  promoteToBishop = 6,
  promoteToRook = 7,
  // Only an answer of the line tests: the line is open, a piece of the same side at its end.
  ownPieceOnLine = 11,
  doubleStep = 12
};

constexpr bool isCastling(MoveKind kind) {
  return kind == castleQueenSide || kind == castleKingSide;
}
// From the square of a king that castles to that of its rook.
constexpr Square stepToCastlingRook(bool kingSide) {
  return kingSide ? 3 : -4;
}

// The kind that a promotion makes of a pawn, and the other way round.
constexpr PieceKind promotedKind(MoveKind promotion) {
  return promotion == promoteToQueen ? queenKind : PieceKind{promotion - promoteToKnight + knightKind};
}
constexpr MoveKind promotionTo(std::int32_t kind) {
  return kind == queenKind ? promoteToQueen : MoveKind{kind - knightKind + promoteToKnight};
}

// Class of a position by its material, 0 to 13; see Network::classifyPosition.
using PositionType = std::int32_t;
inline constexpr PositionType positionTypeCount = 14;
// The types that are searched and fitted; those below are special endings, which only pass through
// network.dat.
inline constexpr PositionType firstLearnedType = 6;
inline constexpr PositionType lastPositionType = positionTypeCount - 1;

// Features of one piece in one position, one bit each; what a bit means depends on the kind of the piece.
using ConfigurationWord = std::uint32_t;

}  // namespace quorvane

#endif  // QUORVANE_BOARD_TYPES_H_

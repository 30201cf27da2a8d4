#include "evaluator/position_words.h"

#include "configurations/configuration_word.h"
#include "configurations/place_bits.h"
#include "configurations/relation_bits.h"
#include "evaluator/attacks.h"

namespace quorvane::evaluator {

namespace {

// The files on which squares of the set stand, bit 1 for the a-file; bits 0 and 9 are those beyond the board.
constexpr std::uint32_t filesOf(SquareSet squares) {
  squares |= squares >> 32;
  squares |= squares >> 16;
  squares |= squares >> 8;
  return static_cast<std::uint32_t>(squares & 0xff) << 1;
}

class Description {
 public:
  explicit Description(const PieceSets& described) : position(described) {
    for (const Side side : {black, white}) {
      sides[side] = position.ofSide(side);
      files[side] = filesOf(position.squares[side][pawnKind]);
    }
    result.occupied = sides[black] | sides[white];
    const PieceCounts ofWhite = position.counts(white);
    const PieceCounts ofBlack = position.counts(black);
    result.type = positionTypeOf(ofWhite, ofBlack);
    result.words = {};
    const std::int32_t balance = materialOf(ofWhite) - materialOf(ofBlack);
    for (const Side side : {black, white}) {
      besideKing[side] = attackSet[kingKind][position.king(side)] & ~result.occupied;
      ofSide[side] = materialBit(side == white ? balance : -balance);
      if (side != position.sideToMove) ofSide[side] |= notOnMove;
    }
  }

  const PositionWords& describe() {
    for (const Side side : {black, white}) {
      addPawns(side, side == white ? whitePawnRules : blackPawnRules);
      addPieces<knightKind>(side);
      addPieces<bishopKind>(side);
      addPieces<rookKind>(side);
      addPieces<queenKind>(side);
      addKing(side);
    }
    return result;
  }

 private:
  void add(Square square, ConfigurationWord bits) { result.words[square] |= bits; }

  // Leaves marks on all pieces on `reached`.
  void mark(SquareSet reached, Side side, PieceKind kind) {
    for (const Square square : Squares(reached & sides[side])) add(square, guardedBy(kind));
    for (const Square square : Squares(reached & sides[opponent(side)])) add(square, attackedBy(kind));
  }

  void addPawns(Side side, const PawnRules& rules) {
    const SquareSet pawns = position.squares[side][pawnKind];
    constexpr SquareSet fileA = 0x0101010101010101;
    const SquareSet towardsA = pawns & ~fileA;
    const SquareSet towardsH = pawns & ~(fileA << 7);
    const SquareSet reached = side == white ? towardsA << 7 | towardsH << 9 : towardsA >> 9 | towardsH >> 7;
    mark(reached, side, pawnKind);

    const bool race = isPawnEnding(result.type);
    for (const Square square : Squares(pawns)) {
      ConfigurationWord bits = ofSide[side] | placeBits(pawnKind, side, square);
      if ((result.occupied & setOf(square + rules.ahead)) != 0) bits |= pawn_bits::blocked;
      bits |= pawnFileBits(
          fileOf(square), [&](std::int32_t file) { return (files[side] >> file & 1) != 0; },
          [&](std::int32_t file) { return (files[opponent(side)] >> file & 1) != 0; });
      if (race) {
        bits |= raceBits(rules, square, position.king(side), position.king(opponent(side)),
                         side == position.sideToMove);
      }
      add(square, bits);
    }
  }

  template <PieceKind kind>
  void addPieces(Side side) {
    const Square enemyKing = position.king(opponent(side));
    for (const Square square : Squares(position.squares[side][kind])) {
      const SquareSet reached = attacks(kind, square, result.occupied);
      mark(reached, side, kind);
      ConfigurationWord bits = ofSide[side] | placeBits(kind, side, square);
      bits |= reachBits(reached & ~result.occupied, besideKing[side], besideKing[opponent(side)]);
      if (kind == rookKind) bits |= rookBits(square, enemyKing);
      if (kind == queenKind) bits |= queenBits(square, enemyKing);
      add(square, bits);
    }
  }

  void addKing(Side side) {
    const Square square = position.king(side);
    const SquareSet reached = attackSet[kingKind][square];
    mark(reached, side, kingKind);
    ConfigurationWord bits = ofSide[side] | placeBits(kingKind, side, square);
    bits |= neighbourBits(std::popcount(besideKing[side]),
                          std::popcount(reached & position.squares[side][pawnKind]));
    bits |= kingDistanceBits(square, position.king(opponent(side)));
    if (position.castled[side]) bits |= king_bits::castled;
    add(square, bits);
  }

  const PieceSets& position;
  PositionWords result;
  Table<SquareSet, 2> sides;           // all pieces of a side
  Table<SquareSet, 2> besideKing;      // the empty squares next to its king
  Table<std::uint32_t, 2> files;       // those of its pawns
  Table<ConfigurationWord, 2> ofSide;  // the bits that all of its pieces have
};

}  // namespace

PositionWords describe(const PieceSets& position) {
  return Description(position).describe();
}

}  // namespace quorvane::evaluator

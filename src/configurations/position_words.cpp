#include "configurations/position_words.h"

#include "configurations/piece_features.h"
#include "configurations/position_type.h"

namespace quorvane {

namespace {

class Description {
 public:
  explicit Description(const PositionSets& described) : position(described), pieces(described.pieces) {
    for (const Side side : {black, white}) all[side] = pieces.ofSide(side);
    const SquareSet occupied = all[black] | all[white];
    const PieceCounts ofWhite = countsOf(pieces[white]);
    const PieceCounts ofBlack = countsOf(pieces[black]);
    result = {positionTypeOf(ofWhite, ofBlack), occupied, {}};
    const std::int32_t balance = materialOf(ofWhite) - materialOf(ofBlack);
    for (const Side side : {black, white}) {
      const Square own = pieces.king(side);
      const Square enemy = pieces.king(opponent(side));
      around[side] = {occupied, attackSet[kingKind][own] & ~occupied, attackSet[kingKind][enemy] & ~occupied,
                      own, enemy};
      files[side] = filesOf(pieces[side][pawnKind]);
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
  void add(Side side, PieceKind kind, Square square, const PieceFeatures& features) {
    result.words[square] |= ofSide[side] | features.own;
    mark(side, kind, features.reached);
  }
  void mark(Side side, PieceKind kind, SquareSet reached) {
    for (const Square at : Squares(reached & all[side])) result.words[at] |= guardedBy(kind);
    for (const Square at : Squares(reached & all[opponent(side)])) result.words[at] |= attackedBy(kind);
  }

  void addPawns(Side side, const PawnRules& rules) {
    const bool race = isPawnEnding(result.type);
    const bool onMove = side == position.sideToMove;
    mark(side, pawnKind, pawnAttacks(side, pieces[side][pawnKind]));
    for (const Square square : Squares(pieces[side][pawnKind])) {
      ConfigurationWord own = pawnBits(rules, square, result.occupied, files[side], files[opponent(side)]);
      if (race) own |= raceBits(rules, square, around[side].ownKing, around[side].enemyKing, onMove);
      result.words[square] |= ofSide[side] | own;
    }
  }

  template <PieceKind kind>
  void addPieces(Side side) {
    for (const Square square : Squares(pieces[side][kind]))
      add(side, kind, square, featuresOf<kind>(side, square, around[side]));
  }

  void addKing(Side side) {
    PieceFeatures king = kingFeatures(side, around[side], pieces[side][pawnKind], position.castled[side]);
    king.own |= kingDistanceBits(around[side].ownKing, around[side].enemyKing);
    add(side, kingKind, around[side].ownKing, king);
  }

  const PositionSets& position;
  const PieceSets& pieces;
  PositionWords result;
  Table<SquareSet, 2> all;             // the pieces of a side
  Table<Surroundings, 2> around;       // what they find around them
  Table<PawnFiles, 2> files;           // those of its pawns
  Table<ConfigurationWord, 2> ofSide;  // the bits that all of its pieces have
};

}  // namespace

PositionWords describe(const PositionSets& position) {
  return Description(position).describe();
}

}  // namespace quorvane

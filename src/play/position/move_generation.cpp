#include "play/position/position.h"

namespace quorvane::play {

namespace {

class Generator {
 public:
  Generator(const Position& position, bool forcing, MoveList& list)
      : p(position),
        own(position.sideToMove),
        taken(position.occupied()),
        forcingOnly(forcing),
        moves(list) {}

  void generate() {
    addPawnMoves(own == white ? whitePawnRules : blackPawnRules);
    const SquareSet enemies = p.ofSide(opponent(own));
    const SquareSet targets = forcingOnly ? enemies : ~p.ofSide(own);
    for (const PieceKind kind : {knightKind, bishopKind, rookKind, queenKind, kingKind}) {
      for (const Square from : Squares(p.pieces[own][kind])) {
        for (const Square to : Squares(attacks(kind, from, taken) & targets))
          moves.append(from, to, ordinaryMove);
      }
    }
    if (forcingOnly || p.inCheck()) return;
    for (const bool kingSide : {true, false}) addCastling(kingSide);
  }

 private:
  void addPawnMoves(const PawnRules& rules) {
    const SquareSet enemies = p.ofSide(opponent(own));
    for (const Square from : Squares(p.pieces[own][pawnKind])) {
      const SquareSet covered = pawnAttacks(own, setOf(from));
      for (const Square to : Squares(covered & enemies)) addPawnMove(from, to, rules);
      if (p.enPassant != noSquare && (covered & setOf(p.enPassant)) != 0)
        moves.append(from, p.enPassant, enPassantCapture);
      const Square to = from + rules.ahead;
      if ((taken & setOf(to)) != 0) continue;
      const bool promotes = rankOf(to) == rules.promotionRank;
      if (promotes || !forcingOnly) addPawnMove(from, to, rules);
      const Square further = to + rules.ahead;
      if (!forcingOnly && rankOf(from) == rules.startRank && (taken & setOf(further)) == 0)
        moves.append(from, further, doubleStep);
    }
  }

  void addPawnMove(Square from, Square to, const PawnRules& rules) {
    if (rankOf(to) != rules.promotionRank) return moves.append(from, to, ordinaryMove);
    moves.append(from, to, promoteToQueen);
    if (forcingOnly) return;
    for (const MoveKind kind : {promoteToKnight, promoteToRook, promoteToBishop})
      moves.append(from, to, kind);
  }

  void addCastling(bool kingSide) {
    if (!p.mayCastle(own, kingSide)) return;
    const Square king = p.pieces.king(own);
    const Square rook = king + stepToCastlingRook(kingSide);
    const Square step = kingSide ? 1 : -1;
    for (Square between = king + step; between != rook; between += step) {
      if ((taken & setOf(between)) != 0) return;
    }
    for (const Square crossed : {king + step, king + 2 * step}) {
      if (p.isAttacked(opponent(own), crossed)) return;
    }
    moves.append(king, king + 2 * step, kingSide ? castleKingSide : castleQueenSide);
  }

  const Position& p;
  const Side own;
  const SquareSet taken;
  const bool forcingOnly;
  MoveList& moves;
};

}  // namespace

void generateMoves(const Position& position, bool forcing, MoveList& moves) {
  Generator(position, forcing, moves).generate();
}

MoveList legalMoves(const Position& position) {
  MoveList moves;
  generateMoves(position, false, moves);
  moves.keepIf([&](Move move) { return position.isLegal(move); });
  return moves;
}

std::uint64_t perft(const Position& position, std::int32_t depth) {
  if (depth <= 0) return 1;
  const MoveList moves = legalMoves(position);
  if (depth == 1) return static_cast<std::uint64_t>(moves.size());
  std::uint64_t leaves = 0;
  for (const Move move : moves) {
    Position next = position;
    next.make(move);
    leaves += perft(next, depth - 1);
  }
  return leaves;
}

}  // namespace quorvane::play

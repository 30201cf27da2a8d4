#include <algorithm>
#include <cstdlib>
#include <functional>

#include "configurations/configuration_word.h"
#include "support/evaluator_laws.h"

namespace quorvane {

namespace {

constexpr std::int32_t materials[] = {1, 3, 3, 5, 9, 0};

std::int32_t files(Square a, Square b) {
  return std::abs(a % 8 - b % 8);
}
std::int32_t ranks(Square a, Square b) {
  return std::abs(a / 8 - b / 8);
}
std::int32_t toEdge(std::int32_t fileOrRank) {
  return std::min(fileOrRank, 7 - fileOrRank);
}

class PlainWords {
 public:
  explicit PlainWords(const quorvane_position& position);

  Table<ConfigurationWord, squareCount> words{};

 private:
  struct Man {
    Side side = noSide;
    std::int32_t kind = emptyKind;
  };

  static bool onBoard(std::int32_t file, std::int32_t rank) {
    return file >= 0 && file < 8 && rank >= 0 && rank < 8;
  }
  bool isFree(Square square) const { return men[square].kind == emptyKind; }
  bool isPawnOf(Side side, std::int32_t file) const;
  bool isPawnEnding() const;
  bool isFreeBesideKing(Side side, Square square) const;
  void mark(const Man& by, Square square);
  // Calls visit(to) for each square that a piece other than a pawn reaches.
  void forEachReached(Square from, const std::function<void(Square)>& visit) const;
  void addOfAll(Square square);
  void addPawn(Square square);
  void addRace(Square square);
  void addKing(Square square);
  void addPiece(Square square);

  Table<Man, squareCount> men{};
  Table<Square, 2> kings{};
  Table<bool, 2> castled{};
  Side sideToMove;
};

PlainWords::PlainWords(const quorvane_position& position) : sideToMove(position.side_to_move) {
  castled[white] = position.white_castled != 0;
  castled[black] = position.black_castled != 0;
  for (std::int32_t i = 0; i < position.count; ++i) {
    const auto& given = position.pieces[i];
    const Man man{given.piece < 8 ? white : black, given.piece % 8};
    men[given.square] = man;
    if (man.kind == kingKind) kings[man.side] = given.square;
  }
  for (Square square = 0; square < squareCount; ++square) {
    if (isFree(square)) continue;
    addOfAll(square);
    if (men[square].kind == pawnKind) {
      addPawn(square);
    } else if (men[square].kind == kingKind) {
      addKing(square);
    } else {
      addPiece(square);
    }
  }
}

bool PlainWords::isPawnOf(Side side, std::int32_t file) const {
  for (std::int32_t rank = 0; rank < 8; ++rank) {
    if (onBoard(file, rank) && men[rank * 8 + file].side == side && men[rank * 8 + file].kind == pawnKind)
      return true;
  }
  return false;
}

bool PlainWords::isPawnEnding() const {
  return std::ranges::any_of(men, [](const Man& man) { return man.kind == pawnKind; }) &&
         std::ranges::none_of(men, [](const Man& man) { return man.kind > pawnKind && man.kind < kingKind; });
}

bool PlainWords::isFreeBesideKing(Side side, Square square) const {
  return isFree(square) && std::max(files(square, kings[side]), ranks(square, kings[side])) == 1;
}

void PlainWords::mark(const Man& by, Square square) {
  if (isFree(square)) return;
  const auto kind = static_cast<PieceKind>(by.kind);
  words[square] |= men[square].side == by.side ? guardedBy(kind) : attackedBy(kind);
}

void PlainWords::forEachReached(Square from, const std::function<void(Square)>& visit) const {
  const std::int32_t kind = men[from].kind;
  for (std::int32_t byFile = -2; byFile <= 2; ++byFile) {
    for (std::int32_t byRank = -2; byRank <= 2; ++byRank) {
      const std::int32_t square = byFile * byFile + byRank * byRank;  // of the length of the step
      const bool straight = square == 1 && kind != knightKind && kind != bishopKind;
      const bool diagonal = square == 2 && kind != knightKind && kind != rookKind;
      if (!straight && !diagonal && !(square == 5 && kind == knightKind)) continue;
      const bool slides = kind != knightKind && kind != kingKind;
      std::int32_t file = from % 8 + byFile;
      std::int32_t rank = from / 8 + byRank;
      for (bool goesOn = true; goesOn && onBoard(file, rank); file += byFile, rank += byRank) {
        visit(rank * 8 + file);
        goesOn = slides && isFree(rank * 8 + file);
      }
    }
  }
}

void PlainWords::addOfAll(Square square) {
  std::int32_t lead = 0;
  for (const Man& man : men) {
    if (man.kind != emptyKind)
      lead += man.side == men[square].side ? materials[man.kind] : -materials[man.kind];
  }
  if (lead > 0) words[square] |= materialAhead;
  if (lead < 0) words[square] |= materialBehind;
  if (men[square].side != sideToMove) words[square] |= notOnMove;
  if (men[square].kind == pawnKind) return;
  const std::int32_t inner = std::max(toEdge(square % 8), toEdge(square / 8));
  words[square] |= inner == 3 ? crossZone : inner == 2 ? shoulderZone : cornerZone;
}

void PlainWords::addPawn(Square square) {
  using namespace pawn_bits;
  const Man& pawn = men[square];
  const std::int32_t forward = pawn.side == white ? 1 : -1;
  const std::int32_t file = square % 8;
  const std::int32_t rank = square / 8;
  for (const std::int32_t beside : {file - 1, file + 1}) {
    if (onBoard(beside, rank + forward)) mark(pawn, (rank + forward) * 8 + beside);
  }
  ConfigurationWord& word = words[square];
  const Side enemy = opponent(pawn.side);
  if (!isFree(square + 8 * forward)) word |= blocked;
  word |= ownPawnOnFile;
  if (!isPawnOf(enemy, file)) word |= noEnemyPawnOnFile;
  if (!isPawnOf(enemy, file - 1) && !isPawnOf(enemy, file + 1)) word |= noEnemyPawnBeside;
  if (isPawnOf(pawn.side, file - 1)) word |= ownPawnTowardsA;
  if (isPawnOf(pawn.side, file + 1)) word |= ownPawnTowardsH;
  const std::int32_t advanced = pawn.side == white ? rank : 7 - rank;
  if (advanced > 0) word |= onRelativeRank(advanced) | onFileFromEdge(toEdge(file));
  if (isPawnEnding()) addRace(square);
}

void PlainWords::addRace(Square square) {
  using namespace pawn_bits;
  const Side side = men[square].side;
  const auto advance = [side](Square at) { return side == white ? at / 8 : 7 - at / 8; };
  const Square promotion = (side == white ? 56 : 0) + square % 8;
  const auto movesOf = [&](Square king) { return std::max(files(king, promotion), ranks(king, promotion)); };
  const Square enemyKing = kings[opponent(side)];
  const std::int32_t rank = advance(square);
  const std::int32_t moves = rank == 0 ? 0 : std::min(7 - rank, 5);
  const std::int32_t enemyMoves = movesOf(enemyKing) - (side == sideToMove ? 0 : 1);
  ConfigurationWord& word = words[square];
  if (enemyMoves > moves) word |= outrunsEnemyKing;
  if (enemyMoves < moves && enemyMoves < movesOf(kings[side])) word |= enemyKingFirstAtPromotion;
  if (advance(enemyKing) > rank) word |= enemyKingAhead;
  if (advance(kings[side]) < rank) word |= ownKingBehind;
}

void PlainWords::addKing(Square square) {
  const Man& king = men[square];
  std::int32_t freeSquares = 0;
  std::int32_t ownPawns = 0;
  forEachReached(square, [&](Square to) {
    mark(king, to);
    if (isFree(to)) ++freeSquares;
    if (men[to].side == king.side && men[to].kind == pawnKind) ++ownPawns;
  });
  ConfigurationWord& word = words[square];
  if (freeSquares < 2) word |= king_bits::hardlyAnyFreeNeighbour;
  if (ownPawns > 1) word |= king_bits::twoOwnPawnsBeside;
  if (castled[king.side]) word |= king_bits::castled;
  word |= king_bits::onRing(std::min(toEdge(square % 8), toEdge(square / 8)));
  const Square other = kings[opponent(king.side)];
  if (ranks(square, other) < 4) word |= king_bits::rankDistance[ranks(square, other)];
  if (files(square, other) < 4) word |= king_bits::fileDistance[files(square, other)];
}

void PlainWords::addPiece(Square square) {
  const Man& piece = men[square];
  const Square enemyKing = kings[opponent(piece.side)];
  ConfigurationWord& word = words[square];
  std::int32_t besideEnemy = 0;
  forEachReached(square, [&](Square to) {
    mark(piece, to);
    if (isFreeBesideKing(piece.side, to)) word |= reachesBesideOwnKing;
    if (isFreeBesideKing(opponent(piece.side), to)) ++besideEnemy;
  });
  if (besideEnemy == 1) word |= reachesOneBesideEnemyKing;
  if (besideEnemy > 1) word |= reachesMoreBesideEnemyKing;
  word |= atCentreDistance(std::min(6 - toEdge(square % 8) - toEdge(square / 8), 5));
  const std::int32_t byFiles = files(square, enemyKing);
  const std::int32_t byRanks = ranks(square, enemyKing);
  if (piece.kind == knightKind || piece.kind == bishopKind) {
    if (piece.side == white ? square / 8 >= 4 : square / 8 <= 3) word |= minor_bits::inOpponentsHalf;
    if (toEdge(square % 8) == 0) word |= minor_bits::onEdgeFile;
  } else if (piece.kind == rookKind) {
    if (byFiles <= 2) word |= rook_bits::enemyKingNearByFile;
    if (byRanks <= 2) word |= rook_bits::enemyKingNearByRank;
  } else {
    const ConfigurationWord byDistance[] = {queen_bits::enemyKingWithin2, queen_bits::enemyKingWithin4,
                                            queen_bits::enemyKingWithin6, 0};
    word |= byDistance[(std::max(byFiles, byRanks) - 1) / 2];
  }
}

}  // namespace

Table<ConfigurationWord, squareCount> plainWords(const quorvane_position& position) {
  return PlainWords(position).words;
}

}  // namespace quorvane

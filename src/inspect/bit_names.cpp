#include "inspect/bit_names.h"

#include <bit>
#include <span>

#include "board/table.h"
#include "configurations/configuration_word.h"
#include "network/network.h"

namespace quorvane {

namespace {

struct Name {
  ConfigurationWord bit;
  const char* text;
};

constexpr Name ofEveryKind[] = {
    {materialAhead, "materialAhead"},
    {materialBehind, "materialBehind"},
    {attackedBy(pawnKind), "attackedByPawn"},
    {attackedBy(knightKind), "attackedByKnight"},
    {attackedBy(bishopKind), "attackedByBishop"},
    {attackedBy(rookKind), "attackedByRook"},
    {attackedBy(queenKind), "attackedByQueen"},
    {attackedBy(kingKind), "attackedByKing"},
    {guardedBy(pawnKind), "guardedByPawn"},
    {guardedBy(knightKind), "guardedByKnight"},
    {guardedBy(bishopKind), "guardedByBishop"},
    {guardedBy(rookKind), "guardedByRook"},
    {guardedBy(queenKind), "guardedByQueen"},
    {guardedBy(kingKind), "guardedByKing"},
    {notOnMove, "notOnMove"},
};

constexpr Name ofPawnsInPawnEndings[] = {
    {pawn_bits::outrunsEnemyKing, "outruns the enemy king"},
    {pawn_bits::enemyKingFirstAtPromotion, "enemy king first at the promotion square"},
    {pawn_bits::enemyKingAhead, "enemy king ahead"},
    {pawn_bits::ownKingBehind, "own king behind"},
};

constexpr Name ofPawns[] = {
    {pawn_bits::blocked, "blocked"},
    {pawn_bits::ownPawnOnFile, "own pawn on the file"},
    {pawn_bits::noEnemyPawnOnFile, "no enemy pawn on the file"},
    {pawn_bits::noEnemyPawnBeside, "no enemy pawn on the neighbour files"},
    {pawn_bits::ownPawnTowardsA, "own pawn on the next file towards a"},
    {pawn_bits::ownPawnTowardsH, "own pawn on the next file towards h"},
    {pawn_bits::onRelativeRank(1), "2nd rank"},
    {pawn_bits::onRelativeRank(2), "3rd rank"},
    {pawn_bits::onRelativeRank(3), "4th rank"},
    {pawn_bits::onRelativeRank(4), "5th rank"},
    {pawn_bits::onRelativeRank(5), "6th rank"},
    {pawn_bits::onRelativeRank(6), "7th rank"},
    {pawn_bits::onFileFromEdge(0), "a- or h-file"},
    {pawn_bits::onFileFromEdge(1), "b- or g-file"},
    {pawn_bits::onFileFromEdge(2), "c- or f-file"},
    {pawn_bits::onFileFromEdge(3), "d- or e-file"},
};

constexpr Name ofAllButPawns[] = {
    {shoulderZone, "shoulder zone"},
    {crossZone, "cross zone"},
    {cornerZone, "corner zone"},
};

constexpr Name ofKnightToQueen[] = {
    {reachesBesideOwnKing, "reaches a square beside its king"},
    {reachesOneBesideEnemyKing, "reaches one square beside the enemy king"},
    {reachesMoreBesideEnemyKing, "reaches several squares beside the enemy king"},
    {atCentreDistance(0), "centre distance 0"},
    {atCentreDistance(1), "centre distance 1"},
    {atCentreDistance(2), "centre distance 2"},
    {atCentreDistance(3), "centre distance 3"},
    {atCentreDistance(4), "centre distance 4"},
    {atCentreDistance(5), "centre distance 5 or 6"},
};

constexpr Name ofMinors[] = {
    {minor_bits::inOpponentsHalf, "in the opponent's half"},
    {minor_bits::onEdgeFile, "a- or h-file"},
};

constexpr Name ofRooks[] = {
    {rook_bits::enemyKingNearByFile, "enemy king within 2 files"},
    {rook_bits::enemyKingNearByRank, "enemy king within 2 ranks"},
};

constexpr Name ofQueens[] = {
    {queen_bits::enemyKingWithin2, "enemy king within 2"},
    {queen_bits::enemyKingWithin4, "enemy king 3 or 4 away"},
    {queen_bits::enemyKingWithin6, "enemy king 5 or 6 away"},
};

constexpr Name ofKings[] = {
    {king_bits::hardlyAnyFreeNeighbour, "at most one free square beside it"},
    {king_bits::twoOwnPawnsBeside, "two or more own pawns beside it"},
    {king_bits::castled, "castled"},
    {king_bits::rankDistance[0], "kings on one rank"},
    {king_bits::rankDistance[1], "kings 1 rank apart"},
    {king_bits::rankDistance[2], "kings 2 ranks apart"},
    {king_bits::rankDistance[3], "kings 3 ranks apart"},
    {king_bits::fileDistance[0], "kings on one file"},
    {king_bits::fileDistance[1], "kings 1 file apart"},
    {king_bits::fileDistance[2], "kings 2 files apart"},
    {king_bits::fileDistance[3], "kings 3 files apart"},
    {king_bits::onRing(0), "ring 0"},
    {king_bits::onRing(1), "ring 1"},
    {king_bits::onRing(2), "ring 2"},
    {king_bits::onRing(3), "ring 3"},
};

using Names = std::span<const Name>;

// What is particular to a kind comes first: it takes bits over from the marks of every kind.
Table<Names, 4> namesOf(PositionType type, std::int32_t kind) {
  switch (kind) {
    case pawnKind:
      return {
          {Network::isPawnEnding(type) ? Names(ofPawnsInPawnEndings) : Names(), ofPawns, {}, ofEveryKind}};
    case knightKind:
    case bishopKind:
      return {{ofMinors, ofKnightToQueen, ofAllButPawns, ofEveryKind}};
    case rookKind:
      return {{ofRooks, ofKnightToQueen, ofAllButPawns, ofEveryKind}};
    case queenKind:
      return {{ofQueens, ofKnightToQueen, ofAllButPawns, ofEveryKind}};
    default:
      return {{ofKings, {}, ofAllButPawns, ofEveryKind}};
  }
}

}  // namespace

const char* kindName(std::int32_t kind) {
  constexpr Table<const char*, pieceKindCount> names = {
      {"pawn", "knight", "bishop", "rook", "queen", "king"}};
  return names[kind];
}

const char* typeName(PositionType type) {
  constexpr Table<const char*, positionTypeCount> names = {
      {"king and rook against king", "king and pawn against king", "king and queen against king",
       "king and two bishops against king", "kings and pawns", "king, bishop and knight against king",
       "material below 10 pawns", "material 10 to 19", "material 20 to 29", "material 30 to 39",
       "material 40 to 49", "material 50 to 59", "material 60 to 69", "material 70 and more"}};
  return names[type];
}

std::string bitName(PositionType type, std::int32_t kind, ConfigurationWord bit) {
  for (const Names names : namesOf(type, kind)) {
    for (const Name& name : names) {
      if (name.bit == bit) return name.text;
    }
  }
  return "never set (bit " + std::to_string(std::countr_zero(bit)) + ")";
}

std::vector<std::string> bitNames(PositionType type, std::int32_t kind, ConfigurationWord mask) {
  std::vector<std::string> names;
  for (; mask != 0; mask &= ~std::bit_floor(mask)) names.push_back(bitName(type, kind, std::bit_floor(mask)));
  return names;
}

std::string patternName(PositionType type, std::int32_t kind, ConfigurationWord mask) {
  std::string joined;
  for (const std::string& name : bitNames(type, kind, mask)) {
    if (!joined.empty()) joined += " + ";
    joined += name;
  }
  return joined;
}

}  // namespace quorvane

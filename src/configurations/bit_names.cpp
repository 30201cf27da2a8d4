#include "configurations/bit_names.h"

#include <bit>
#include <span>

#include "board/table.h"
#include "configurations/configuration_word.h"
#include "configurations/position_type.h"

namespace quorvane {

namespace {

struct Name {
  ConfigurationWord bit;
  const char* words;
  const char* identifier;
};

constexpr Name ofEveryKind[] = {
    {materialAhead, "more material", "materialAhead"},
    {materialBehind, "less material", "materialBehind"},
    {attackedBy(pawnKind), "attacked by a pawn", "attackedByPawn"},
    {attackedBy(knightKind), "attacked by a knight", "attackedByKnight"},
    {attackedBy(bishopKind), "attacked by a bishop", "attackedByBishop"},
    {attackedBy(rookKind), "attacked by a rook", "attackedByRook"},
    {attackedBy(queenKind), "attacked by a queen", "attackedByQueen"},
    {attackedBy(kingKind), "enemy king next to it", "attackedByKing"},
    {guardedBy(pawnKind), "guarded by a pawn", "guardedByPawn"},
    {guardedBy(knightKind), "guarded by a knight", "guardedByKnight"},
    {guardedBy(bishopKind), "guarded by a bishop", "guardedByBishop"},
    {guardedBy(rookKind), "guarded by a rook", "guardedByRook"},
    {guardedBy(queenKind), "guarded by a queen", "guardedByQueen"},
    {guardedBy(kingKind), "own king next to it", "guardedByKing"},
    {notOnMove, "opponent to move", "notOnMove"},
};

constexpr Name ofPawnsInPawnEndings[] = {
    {pawn_bits::outrunsEnemyKing, "outruns the enemy king", "outrunsEnemyKing"},
    {pawn_bits::enemyKingFirstAtPromotion, "enemy king first at the promotion square",
     "enemyKingFirstAtPromotion"},
    {pawn_bits::enemyKingAhead, "enemy king ahead", "enemyKingAhead"},
    {pawn_bits::ownKingBehind, "own king behind", "ownKingBehind"},
};

constexpr Name ofPawns[] = {
    {pawn_bits::blocked, "blocked", "blocked"},
    {pawn_bits::ownPawnOnFile, "own pawn on the file", "ownPawnOnFile"},
    {pawn_bits::noEnemyPawnOnFile, "no enemy pawn on the file", "noEnemyPawnOnFile"},
    {pawn_bits::noEnemyPawnBeside, "no enemy pawn on the neighbour files", "noEnemyPawnBeside"},
    {pawn_bits::ownPawnTowardsA, "own pawn on the next file towards a", "ownPawnTowardsA"},
    {pawn_bits::ownPawnTowardsH, "own pawn on the next file towards h", "ownPawnTowardsH"},
    {pawn_bits::onRelativeRank(1), "2nd rank", "onRelativeRank1"},
    {pawn_bits::onRelativeRank(2), "3rd rank", "onRelativeRank2"},
    {pawn_bits::onRelativeRank(3), "4th rank", "onRelativeRank3"},
    {pawn_bits::onRelativeRank(4), "5th rank", "onRelativeRank4"},
    {pawn_bits::onRelativeRank(5), "6th rank", "onRelativeRank5"},
    {pawn_bits::onRelativeRank(6), "7th rank", "onRelativeRank6"},
    {pawn_bits::onFileFromEdge(0), "a- or h-file", "onFileFromEdge0"},
    {pawn_bits::onFileFromEdge(1), "b- or g-file", "onFileFromEdge1"},
    {pawn_bits::onFileFromEdge(2), "c- or f-file", "onFileFromEdge2"},
    {pawn_bits::onFileFromEdge(3), "d- or e-file", "onFileFromEdge3"},
};

constexpr Name ofAllButPawns[] = {
    {shoulderZone, "shoulder zone", "shoulderZone"},
    {crossZone, "cross zone", "crossZone"},
    {cornerZone, "corner zone", "cornerZone"},
};

constexpr Name ofKnightToQueen[] = {
    {reachesBesideOwnKing, "reaches a square beside its king", "reachesBesideOwnKing"},
    {reachesOneBesideEnemyKing, "reaches one square beside the enemy king", "reachesOneBesideEnemyKing"},
    {reachesMoreBesideEnemyKing, "reaches several squares beside the enemy king",
     "reachesMoreBesideEnemyKing"},
    {atCentreDistance(0), "centre distance 0", "atCentreDistance0"},
    {atCentreDistance(1), "centre distance 1", "atCentreDistance1"},
    {atCentreDistance(2), "centre distance 2", "atCentreDistance2"},
    {atCentreDistance(3), "centre distance 3", "atCentreDistance3"},
    {atCentreDistance(4), "centre distance 4", "atCentreDistance4"},
    {atCentreDistance(5), "centre distance 5 or 6", "atCentreDistance5"},
};

constexpr Name ofMinors[] = {
    {minor_bits::inOpponentsHalf, "in the opponent's half", "inOpponentsHalf"},
    {minor_bits::onEdgeFile, "a- or h-file", "onEdgeFile"},
};

constexpr Name ofRooks[] = {
    {rook_bits::enemyKingNearByFile, "enemy king within 2 files", "enemyKingNearByFile"},
    {rook_bits::enemyKingNearByRank, "enemy king within 2 ranks", "enemyKingNearByRank"},
};

constexpr Name ofQueens[] = {
    {queen_bits::enemyKingWithin2, "enemy king within 2", "enemyKingWithin2"},
    {queen_bits::enemyKingWithin4, "enemy king 3 or 4 away", "enemyKingWithin4"},
    {queen_bits::enemyKingWithin6, "enemy king 5 or 6 away", "enemyKingWithin6"},
};

constexpr Name ofKings[] = {
    {king_bits::hardlyAnyFreeNeighbour, "at most one free square beside it", "hardlyAnyFreeNeighbour"},
    {king_bits::twoOwnPawnsBeside, "two or more own pawns beside it", "twoOwnPawnsBeside"},
    {king_bits::castled, "castled", "castled"},
    {king_bits::rankDistance[0], "kings on one rank", "rankDistance0"},
    {king_bits::rankDistance[1], "kings 1 rank apart", "rankDistance1"},
    {king_bits::rankDistance[2], "kings 2 ranks apart", "rankDistance2"},
    {king_bits::rankDistance[3], "kings 3 ranks apart", "rankDistance3"},
    {king_bits::fileDistance[0], "kings on one file", "fileDistance0"},
    {king_bits::fileDistance[1], "kings 1 file apart", "fileDistance1"},
    {king_bits::fileDistance[2], "kings 2 files apart", "fileDistance2"},
    {king_bits::fileDistance[3], "kings 3 files apart", "fileDistance3"},
    {king_bits::onRing(0), "ring 0", "onRing0"},
    {king_bits::onRing(1), "ring 1", "onRing1"},
    {king_bits::onRing(2), "ring 2", "onRing2"},
    {king_bits::onRing(3), "ring 3", "onRing3"},
};

using Names = std::span<const Name>;

// What is particular to a kind comes first: it takes bits over from the marks of every kind.
Table<Names, 4> namesOf(PositionType type, std::int32_t kind) {
  switch (kind) {
    case pawnKind:
      return {{isPawnEnding(type) ? Names(ofPawnsInPawnEndings) : Names(), ofPawns, {}, ofEveryKind}};
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

const Name* nameOf(PositionType type, std::int32_t kind, ConfigurationWord bit) {
  for (const Names names : namesOf(type, kind)) {
    for (const Name& name : names) {
      if (name.bit == bit) return &name;
    }
  }
  return nullptr;
}

template <typename OneName>
std::vector<std::string> namesOfBits(ConfigurationWord mask, OneName oneName) {
  std::vector<std::string> names;
  for (; mask != 0; mask &= ~std::bit_floor(mask)) names.push_back(oneName(std::bit_floor(mask)));
  return names;
}

}  // namespace

const char* typeName(PositionType type) {
  constexpr Table<const char*, positionTypeCount> names = {
      {"king and rook against king", "king and pawn against king", "king and queen against king",
       "king and two bishops against king", "kings and pawns", "king, bishop and knight against king",
       "material below 10 pawns", "material 10 to 19", "material 20 to 29", "material 30 to 39",
       "material 40 to 49", "material 50 to 59", "material 60 to 69", "material 70 and more"}};
  return names[type];
}

const char* typeInWords(PositionType type) {
  constexpr Table<const char*, positionTypeCount - firstLearnedType> names = {
      {"less than a rook each", "a rook and a few pawns each", "rook, minor piece and pawns each",
       "queen, rook and pawns each", "late middlegame", "middlegame", "early middlegame", "opening"}};
  return type < firstLearnedType ? typeName(type) : names[type - firstLearnedType];
}

const char* featureName(PositionType type, std::int32_t kind, ConfigurationWord bit) {
  const Name* const name = nameOf(type, kind, bit);
  return name != nullptr ? name->words : nullptr;
}

std::string bitName(PositionType type, std::int32_t kind, ConfigurationWord bit) {
  const char* const name = featureName(type, kind, bit);
  return name != nullptr ? name : "never set (bit " + std::to_string(std::countr_zero(bit)) + ")";
}

std::string bitIdentifier(PositionType type, std::int32_t kind, ConfigurationWord bit) {
  const Name* const name = nameOf(type, kind, bit);
  return name != nullptr ? name->identifier : "bit" + std::to_string(std::countr_zero(bit));
}

std::vector<std::string> bitNames(PositionType type, std::int32_t kind, ConfigurationWord mask) {
  return namesOfBits(mask, [&](ConfigurationWord bit) { return bitName(type, kind, bit); });
}

std::vector<std::string> bitIdentifiers(PositionType type, std::int32_t kind, ConfigurationWord mask) {
  return namesOfBits(mask, [&](ConfigurationWord bit) { return bitIdentifier(type, kind, bit); });
}

ConfigurationWord alwaysHolds(std::int32_t kind) {
  return kind == pawnKind ? pawn_bits::ownPawnOnFile : 0;
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

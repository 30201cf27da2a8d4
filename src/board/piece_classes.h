#ifndef QUORVANE_BOARD_PIECE_CLASSES_H_
#define QUORVANE_BOARD_PIECE_CLASSES_H_

#include <cstdint>

#include "board/types.h"

namespace quorvane {

// What the pieces of one class have in common. Each list of mailbox steps is in the order of generation and
// ends with noSquare.
struct PieceClass {
  PieceKind kind;
  std::int32_t keyIndex;  // of a black piece
  std::int32_t material;  // thousandths of a pawn
  const std::int32_t* directions;
};

// White pieces use the key columns behind the black ones.
inline constexpr std::int32_t whiteKeyOffset = 6;
// The column of the empty square, the same for every side, whose keys are 0.
inline constexpr std::int32_t emptyKeyIndex = 2 * whiteKeyOffset;
inline constexpr std::int32_t keyColumns = emptyKeyIndex + 1;

namespace directions {
inline constexpr std::int32_t none[] = {noSquare};
inline constexpr std::int32_t whitePawn[] = {9, 11, 8, noSquare};
inline constexpr std::int32_t blackPawn[] = {-9, -11, -8, noSquare};
inline constexpr std::int32_t knight[] = {-8, -12, -19, -21, 8, 12, 19, 21, noSquare};
inline constexpr std::int32_t bishop[] = {9, 11, -9, -11, noSquare};
inline constexpr std::int32_t rook[] = {1, -1, 10, -10, noSquare};
inline constexpr std::int32_t queen[] = {9, 11, -9, -11, 1, -1, 10, -10, noSquare};
inline constexpr std::int32_t king[] = {1, 9, 10, 11, -1, -9, -10, -11, noSquare};
}  // namespace directions

inline constexpr PieceClass emptySquareClass{emptyKind, emptyKeyIndex, 0, directions::none};
inline constexpr PieceClass whitePawnClass{pawnKind, 0, 1000, directions::whitePawn};
inline constexpr PieceClass blackPawnClass{pawnKind, 0, 1000, directions::blackPawn};
inline constexpr PieceClass rookClass{rookKind, 1, 5000, directions::rook};
inline constexpr PieceClass bishopClass{bishopKind, 2, 3000, directions::bishop};
inline constexpr PieceClass knightClass{knightKind, 3, 3000, directions::knight};
inline constexpr PieceClass queenClass{queenKind, 4, 9000, directions::queen};
inline constexpr PieceClass kingClass{kingKind, 5, 0, directions::king};

// How the pawns of a side move; steps are differences of square numbers.
struct PawnRules {
  Side side;
  Square ahead;
  Square firstCapture;            // in the order of generation
  std::int32_t firstCaptureEdge;  // the file from which it would leave the board
  Square secondCapture;
  std::int32_t secondCaptureEdge;
  std::int32_t startRank;
  std::int32_t rankBeforePromotion;
  std::int32_t promotionRank;
};

inline constexpr PawnRules whitePawnRules{white, 8, 7, 0, 9, 7, 1, 6, 7};
inline constexpr PawnRules blackPawnRules{black, -8, -7, 7, -9, 0, 6, 1, 0};

}  // namespace quorvane

#endif  // QUORVANE_BOARD_PIECE_CLASSES_H_

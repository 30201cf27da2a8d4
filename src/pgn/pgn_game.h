#ifndef QUORVANE_PGN_PGN_GAME_H_
#define QUORVANE_PGN_PGN_GAME_H_

#include <cstdint>
#include <string_view>

#include "board/decoded_move.h"
#include "board/placement.h"
#include "board/types.h"
#include "pgn/text_list.h"

namespace quorvane {

// A game's result.
inline constexpr std::int32_t whiteWon = 1;
inline constexpr std::int32_t blackWon = -1;
inline constexpr std::int32_t draw = 0;
inline constexpr std::int32_t noResult = 2;

// One game as its file gives it: raw text and a start position. Nothing in it knows the rules of chess. The
// text belongs to a TextStore, for a game of a PgnDatabase that of the database; a copy of the game shares
// it.
class PgnGame {
 public:
  // Reads the position of a FEN tag, given whole but without its square brackets. Everything up to the first
  // double quote is skipped. Adds to the placement lists. False, with all twelve emptied and nothing else
  // touched, if either side does not have exactly one king; that is the only ground for refusal.
  bool parseFen(std::string_view tag);

  // Moves `tokenCursor` on to the next token that starts like a move, and decodes it by its text alone. False
  // at the end of the tokens, where `move` stays untouched, and at a token that is no move after all, which
  // leaves in it what has been read so far.
  bool nextMove(DecodedMove& move);

  // whiteWon, blackWon, draw, or noResult; the last result token decides.
  std::int32_t result() const;

  TextList tags;        // without the square brackets; nothing but FEN tags is ever looked at
  TextList tokens;      // the move text, comments and numbers included
  Placement placement;  // the start position
  Side sideToMove = white;
  // Taken from the FEN text and read by nothing: a position is set up from placement and sideToMove alone.
  bool whiteKingSide = false;
  bool whiteQueenSide = false;
  bool blackKingSide = false;
  bool blackQueenSide = false;
  Square enPassant = noSquare;
  std::int32_t halfmoveClock = 0;
  std::int32_t fullmoveNumber = 0;

  std::int32_t tokenCursor = 0;  // index of the next token that nextMove looks at
};

}  // namespace quorvane

#endif  // QUORVANE_PGN_PGN_GAME_H_

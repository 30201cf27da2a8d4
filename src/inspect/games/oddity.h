#ifndef QUORVANE_INSPECT_GAMES_ODDITY_H_
#define QUORVANE_INSPECT_GAMES_ODDITY_H_

#include <string>

namespace quorvane::inspect {

// What is odd about a game.
enum class Oddity {
  none,
  noResult,           // its moves are not followed by a result
  tooShort,           // too few plies
  tooLong,            // more plies than the board keeps
  noPiece,            // no piece can make the move
  firstPiecePinned,   // the first piece that fits is pinned, another one could move
  kingInCheck,        // the move leaves its own king in check
  opponentInCheck,    // the side that is not to move stands in check, in a start position
  castlingWithZeros,  // 0-0 is passed over, and what follows is played without it
  unreadableToken,    // ends the game early; what stands before it counts
  noQuietPosition     // it was played through, and has nothing to learn from
};

struct OddityWords {
  const char* name;  // "firstPiecePinned", for programs
  std::string text;  // the same in a few words, for people
};
const OddityWords& wordsOf(Oddity oddity);

}  // namespace quorvane::inspect

#endif  // QUORVANE_INSPECT_GAMES_ODDITY_H_

#ifndef QUORVANE_INSPECT_GAMES_GAME_VERDICT_H_
#define QUORVANE_INSPECT_GAMES_GAME_VERDICT_H_

#include <cstdint>
#include <map>
#include <string>
#include <string_view>

#include "board/board.h"
#include "learning/collect/quiet_positions.h"
#include "pgn/pgn_game.h"

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

// "firstPiecePinned", for programs.
const char* oddityName(Oddity oddity);
// The same in a few words, for people.
const char* oddityText(Oddity oddity);

// Which samples a game gave, and why none or not all of them.
struct GameVerdict {
  std::int32_t result = noResult;
  std::size_t samples = 0;
  Oddity oddity = Oddity::none;  // always another if there are no samples
  // Where the oddity is a token's: the token, and the ply that it stands for, from 1. Otherwise the token is empty,
  // and the ply the last that was played; 0 for a game without a result.
  std::string token;
  std::int32_t ply = 0;

  bool hasResult() const { return result != noResult; }
};

// What came of many games.
struct GameTally {
  std::size_t games = 0;
  std::size_t withResult = 0;  // for these the utility prints a dot
  std::size_t withSamples = 0;
  std::size_t samples = 0;
  std::map<Oddity, std::size_t> withoutSamples;  // games
  std::map<Oddity, std::size_t> partly;          // games that gave samples in spite of it

  void add(const GameVerdict& verdict);
};

// Visits the quiet positions of a game as the utility does, and tells what came of it. The visits see the board.
GameVerdict judgeGame(PgnGame& game, const QuietPositions::Visit& visit);

// What is odd about the moves of a game, whatever its result, its length and its samples: the fields `oddity`, none where
// all can be played, `token` and `ply`. The board is left at the end of what could.
GameVerdict judgeMoves(PgnGame& game);

// The value of a tag, "White" say; empty if the game has no such tag.
std::string tagValue(const PgnGame& game, std::string_view name);

}  // namespace quorvane::inspect

#endif  // QUORVANE_INSPECT_GAMES_GAME_VERDICT_H_

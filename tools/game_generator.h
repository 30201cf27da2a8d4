#ifndef QUORVANE_TOOLS_GAME_GENERATOR_H_
#define QUORVANE_TOOLS_GAME_GENERATOR_H_

#include <cstdint>
#include <string>
#include <string_view>

#include "board/board.h"
#include "tools/seeded_random.h"
#include "tools/tried_moves.h"

namespace quorvane {

// Plays games that look like chess and gives them as PGN, one after the other: the same ones for the same
// seed and the same calls, whatever the compiler.
//
// Plays on the one board of the process. The destructor ends the board, so neither a Learner nor a second
// generator may live beside it.
class GameGenerator : public Board {
 public:
  explicit GameGenerator(std::uint64_t seed);
  ~GameGenerator();
  GameGenerator(const GameGenerator&) = delete;
  GameGenerator& operator=(const GameGenerator&) = delete;

  // A game from the usual start: the seven tags, the moves in lines of less than 80 characters, a result that
  // is never "*", and an empty line behind it. Leaves the last position on the board.
  std::string nextGame();
  // The same from a random ending, which a FEN tag tells.
  std::string nextEnding();

  static constexpr std::int32_t longestGame = 200;  // plies

 private:
  std::string play(std::string_view startTags);
  // What the position means for the game: a result, or nothing while it goes on.
  std::string_view verdict() const;
  bool isThirdTime() const;
  void make(const MoveRecord& move);
  void setUpRandomEnding();

  SeededRandom random;
  TriedMoves moves;
  std::int32_t gameCount = 0;

  // Of the game that is being played.
  std::int32_t levels[2] = {};  // of the players, by Side; 1 blunders most
  std::int32_t plyLimit = 0;    // here the game is adjudicated
  std::int32_t resignMargin = 0;
  std::int32_t reversiblePlies = 0;  // since the last capture or move of a pawn
};

}  // namespace quorvane

#endif  // QUORVANE_TOOLS_GAME_GENERATOR_H_

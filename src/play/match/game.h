#ifndef QUORVANE_PLAY_MATCH_GAME_H_
#define QUORVANE_PLAY_MATCH_GAME_H_

#include <atomic>
#include <cstdint>
#include <string>
#include <vector>

#include "play/match/openings.h"
#include "play/search/search.h"

namespace quorvane::play {

// One who plays matches: what it knows, and how it searches.
struct Contender {
  std::string name;
  Knowledge knowledge;
  std::uint32_t devices = allDevices;
};

struct PlayedMove {
  Move move;
  std::int32_t score;  // as the mover saw it
};

// A game that was played to its end.
struct PlayedGame {
  std::vector<PlayedMove> moves;  // behind the opening
  std::int32_t points = 0;        // of White, in halves: 0, 1 or 2
  const char* reason = "";        // "mate", "stalemate", ...
};

// Plays games between two contenders, who outlive it; on one thread at a time.
class Players {
 public:
  // Each move is searched for so many nodes; a game ends as soon as `interrupted`.
  Players(const Contender& first, const Contender& second, std::uint64_t nodes,
          const std::atomic<bool>& interrupted);

  // A game from an opening, the first with White or with Black. What comes out depends on nothing else.
  PlayedGame play(const Opening& opening, bool firstIsWhite);

  static constexpr std::size_t mostMoves = 300;  // plies, then it is drawn

 private:
  struct Player {
    Player(const Contender& played, TranspositionTable& table)
        : contender(played), judge(played.knowledge), search(judge, table) {}
    const Contender& contender;
    Judge judge;
    Search search;
  };

  TranspositionTable tables[2];
  Player players[2];
  Goal goal;
  const std::atomic<bool>& stop;
};

}  // namespace quorvane::play

#endif  // QUORVANE_PLAY_MATCH_GAME_H_

#ifndef QUORVANE_PGN_PGN_DATABASE_H_
#define QUORVANE_PGN_PGN_DATABASE_H_

#include <cstdint>
#include <string>
#include <vector>

#include "pgn/pgn_game.h"

namespace quorvane {

// The games read so far, in the order of reading. Owns them; nothing removes one.
class PgnDatabase {
 public:
  // Appends the games of the file `name`. Says nothing and fails at nothing: a file that cannot be opened
  // adds no game, and whatever the others hold is taken for what can be made of it. Every game gets a start
  // position that the board can hold: that of its last FEN tag, or the usual one.
  void load(const std::string& name);

  // The game at `index`, from 0, rewound to its first token; null if there is none. Valid until the next
  // load.
  PgnGame* game(std::int32_t index);

 private:
  std::vector<PgnGame> games;
};

}  // namespace quorvane

#endif  // QUORVANE_PGN_PGN_DATABASE_H_

#ifndef QUORVANE_PGN_PGN_DATABASE_H_
#define QUORVANE_PGN_PGN_DATABASE_H_

#include <cstdint>
#include <deque>
#include <istream>
#include <string>

#include "pgn/pgn_game.h"
#include "pgn/text_store.h"

namespace quorvane {

// The games read so far, in the order of reading. Owns them and their texts.
class PgnDatabase {
 public:
  // Appends the games of the file `name`. Says nothing and fails at nothing: a file that cannot be opened
  // adds no game, and whatever the others hold is taken for what can be made of it. Every game gets a start
  // position that the board can hold: that of its last FEN tag, or the usual one.
  void load(const std::string& name);
  // The same with what is left of an open file.
  void load(std::istream& file);

  // The game at `index`, from 0, rewound to its first token; null if there is none. Valid until
  // clear.
  PgnGame* game(std::int32_t index);

  // Removes all games.
  void clear();

 private:
  std::deque<PgnGame> games;
  TextStore texts;  // their tags and tokens
};

}  // namespace quorvane

#endif  // QUORVANE_PGN_PGN_DATABASE_H_

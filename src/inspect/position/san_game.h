#ifndef QUORVANE_INSPECT_POSITION_SAN_GAME_H_
#define QUORVANE_INSPECT_POSITION_SAN_GAME_H_

#include <cstdint>
#include <string>
#include <vector>

#include "inspect/common/game_files.h"
#include "inspect/common/move_text.h"
#include "play/position/position.h"

namespace quorvane::inspect {

// Why a move of a game cannot be played.
enum class SanFault {
  none,
  unreadable,   // no move at all
  noPiece,      // no piece goes there
  kingInCheck,  // it leaves its own king in check
  ambiguous,    // two pieces may go there
  badStart      // the game starts from what is no position of chess
};

// The same in a few words, behind "a move that".
const char* textOf(SanFault fault);

// A game with moves in standard algebraic notation, read by the rules of chess: who may go there is found by
// who may legally go there. Castling may be written with zeros, signs may follow any move, both squares may
// be given (e2-e4).
class SanGame {
 public:
  // At the start of the game. A FEN tag that does not tell who may castle leaves it to king and rook.
  explicit SanGame(const GameParts& parts);

  // Plays the next element of the game's text if it is a move. If it cannot be played, the position stays.
  SanFault play(const MoveElement& element);

  // Does the game start from a position of chess? No move can be played if not.
  bool hasStart() const { return startIsKnown; }
  const play::Position& position() const { return reached; }
  // The keys of the positions before it, from the start of the game on.
  const std::vector<std::uint64_t>& earlierKeys() const { return keys; }

 private:
  play::Position reached;
  bool startIsKnown = true;
  std::vector<std::uint64_t> keys;
};

}  // namespace quorvane::inspect

#endif  // QUORVANE_INSPECT_POSITION_SAN_GAME_H_

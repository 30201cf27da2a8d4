#ifndef QUORVANE_PLAY_POSITION_MOVE_TEXT_H_
#define QUORVANE_PLAY_POSITION_MOVE_TEXT_H_

#include <string>
#include <string_view>

#include "board/decoded_move.h"
#include "play/position/position.h"

namespace quorvane::play {

// As the protocol writes a move: "e2e4", "e7e8q", "e1g1" for castling; "0000" for no move.
std::string coordinates(Move move);
// The other way round; no move if no legal one is written so.
Move moveOf(const Position& position, std::string_view coordinates);

// As games write a legal move: "Nbd7", "exd8=Q+", "O-O#".
std::string standardNotation(const Position& position, Move move);
// The legal move that a game's token names, as PgnGame::nextMove has read it; no move if none fits or several
// do.
Move moveOf(const Position& position, const DecodedMove& decoded);

}  // namespace quorvane::play

#endif  // QUORVANE_PLAY_POSITION_MOVE_TEXT_H_

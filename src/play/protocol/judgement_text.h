#ifndef QUORVANE_PLAY_PROTOCOL_JUDGEMENT_TEXT_H_
#define QUORVANE_PLAY_PROTOCOL_JUDGEMENT_TEXT_H_

#include <string>

#include "play/search/knowledge.h"

namespace quorvane::play {

// The board in eight lines, White below.
std::string boardText(const Position& position);

// What a position is worth without a search, and what each piece adds to that; lines for people.
std::string judgementText(const Knowledge& knowledge, const Position& position);

}  // namespace quorvane::play

#endif  // QUORVANE_PLAY_PROTOCOL_JUDGEMENT_TEXT_H_

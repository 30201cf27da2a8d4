#ifndef QUORVANE_INSPECT_BIT_NAMES_H_
#define QUORVANE_INSPECT_BIT_NAMES_H_

#include <cstdint>
#include <string>
#include <vector>

#include "board/types.h"

namespace quorvane {

// "pawn" to "king".
const char* kindName(std::int32_t kind);

// What a position type is, in a few words.
const char* typeName(PositionType type);

// What one bit means in the word of a piece of `kind`. In a pawn ending some bits of pawns mean something
// else, hence the type. A bit that no such piece ever has gets "never set (bit 9)".
std::string bitName(PositionType type, std::int32_t kind, ConfigurationWord bit);

// The names of all bits of `mask`, from the highest bit down: place first, then marks, then material.
std::vector<std::string> bitNames(PositionType type, std::int32_t kind, ConfigurationWord mask);

// "enemy king within 2 files + attackedByPawn".
std::string patternName(PositionType type, std::int32_t kind, ConfigurationWord mask);

}  // namespace quorvane

#endif  // QUORVANE_INSPECT_BIT_NAMES_H_

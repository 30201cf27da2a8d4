#ifndef QUORVANE_CONFIGURATIONS_BIT_NAMES_H_
#define QUORVANE_CONFIGURATIONS_BIT_NAMES_H_

#include <cstdint>
#include <string>
#include <vector>

#include "board/kind_name.h"
#include "board/types.h"

namespace quorvane {

// What a position type is, in a few words; those of the learned types are told by their material.
const char* typeName(PositionType type);
// The same as a player says it: what such positions mostly look like, "middlegame".
const char* typeInWords(PositionType type);

// What one bit means in the word of a piece of `kind`, in plain words. In a pawn ending some bits of pawns
// mean something else, hence the type. nullptr for a bit that no such piece ever has.
const char* featureName(PositionType type, std::int32_t kind, ConfigurationWord bit);
// The same; a bit that no such piece ever has gets "never set (bit 9)".
std::string bitName(PositionType type, std::int32_t kind, ConfigurationWord bit);

// The name for programs, "attackedByKnight": that of configuration_word.h with its number behind it, in one
// word. "bit9" for one that no such piece ever has.
std::string bitIdentifier(PositionType type, std::int32_t kind, ConfigurationWord bit);

// The names of all bits of `mask`, from the highest bit down: place first, then marks, then material.
std::vector<std::string> bitNames(PositionType type, std::int32_t kind, ConfigurationWord mask);
std::vector<std::string> bitIdentifiers(PositionType type, std::int32_t kind, ConfigurationWord mask);

// "enemy king within 2 files + attacked by a pawn".
std::string patternName(PositionType type, std::int32_t kind, ConfigurationWord mask);

// The bits that every piece of `kind` has, whatever the position.
ConfigurationWord alwaysHolds(std::int32_t kind);

}  // namespace quorvane

#endif  // QUORVANE_CONFIGURATIONS_BIT_NAMES_H_

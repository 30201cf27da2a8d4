#ifndef QUORVANE_PLAY_POSITION_POSITION_KEYS_H_
#define QUORVANE_PLAY_POSITION_POSITION_KEYS_H_

#include <cstdint>

#include "board/table.h"
#include "board/types.h"

namespace quorvane::play {

// What the key of a position is made of, by exclusive or (Zobrist 1970): all that makes two positions the
// same for a repetition.
struct PositionKeys {
  Table<Table<Table<std::uint64_t, squareCount>, pieceKindCount>, 2> pieces;
  Table<std::uint64_t, 16> castling;  // by the set of rights
  Table<std::uint64_t, 8> enPassant;  // by file
  std::uint64_t blackToMove;
};

inline constexpr PositionKeys positionKeys = [] {
  PositionKeys keys{};
  std::uint64_t state = 0;
  // SplitMix64 (Steele, Lea and Flood 2014).
  const auto next = [&state] {
    std::uint64_t mixed = state += 0x9e3779b97f4a7c15;
    mixed = (mixed ^ mixed >> 30) * 0xbf58476d1ce4e5b9;
    mixed = (mixed ^ mixed >> 27) * 0x94d049bb133111eb;
    return mixed ^ mixed >> 31;
  };
  for (auto& ofSide : keys.pieces) {
    for (auto& ofKind : ofSide) {
      for (std::uint64_t& key : ofKind) key = next();
    }
  }
  for (std::uint64_t& key : keys.castling) key = next();
  for (std::uint64_t& key : keys.enPassant) key = next();
  keys.blackToMove = next();
  return keys;
}();

}  // namespace quorvane::play

#endif  // QUORVANE_PLAY_POSITION_POSITION_KEYS_H_

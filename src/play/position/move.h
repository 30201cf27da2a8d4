#ifndef QUORVANE_PLAY_POSITION_MOVE_H_
#define QUORVANE_PLAY_POSITION_MOVE_H_

#include <cassert>
#include <cstdint>

#include "board/types.h"

namespace quorvane::play {

// A move in few bytes, as lists and tables hold many; `kind` is a MoveKind that can be made. Move{} is no
// move.
struct Move {
  std::uint8_t from;
  std::uint8_t to;
  std::uint8_t kind;

  constexpr bool operator==(const Move&) const = default;
  constexpr explicit operator bool() const { return from != to; }

  constexpr bool promotes() const { return kind >= promoteToQueen && kind <= promoteToRook; }
};

// In 16 bits, of which no move is 0.
constexpr std::uint16_t packed(Move move) {
  return static_cast<std::uint16_t>(move.from | move.to << 6 | move.kind << 12);
}
constexpr Move unpacked(std::uint16_t bits) {
  return {static_cast<std::uint8_t>(bits & 63), static_cast<std::uint8_t>(bits >> 6 & 63),
          static_cast<std::uint8_t>(bits >> 12)};
}

// Moves in the order of generation. There is room for all that piecesPerSide queens can have.
class MoveList {
 public:
  void append(Square from, Square to, MoveKind kind) {
    assert(count < capacity);
    moves[count++] = {static_cast<std::uint8_t>(from), static_cast<std::uint8_t>(to),
                      static_cast<std::uint8_t>(kind)};
  }
  void append(Move move) {
    assert(count < capacity);
    moves[count++] = move;
  }
  // Keeps those moves of which `keeps` says so.
  template <typename Keeps>
  void keepIf(Keeps keeps) {
    std::int32_t kept = 0;
    for (const Move move : *this) {
      if (keeps(move)) moves[kept++] = move;
    }
    count = kept;
  }

  std::int32_t size() const { return count; }
  bool empty() const { return count == 0; }
  Move operator[](std::int32_t index) const { return moves[index]; }
  const Move* begin() const { return moves; }
  const Move* end() const { return moves + count; }

  static constexpr std::int32_t capacity = piecesPerSide * 27;

 private:
  Move moves[capacity];
  std::int32_t count = 0;
};

}  // namespace quorvane::play

#endif  // QUORVANE_PLAY_POSITION_MOVE_H_

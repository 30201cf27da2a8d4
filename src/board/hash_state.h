#ifndef QUORVANE_BOARD_HASH_STATE_H_
#define QUORVANE_BOARD_HASH_STATE_H_

#include <cassert>
#include <cstdint>

#include "board/board.h"
#include "board/piece_classes.h"

namespace quorvane {

// Zobrist keys of the positions on the line of play, and how often each has occurred on it.
//
// A key covers the placement of the pieces alone: neither side to move, nor castling, nor en passant. It
// counts from the start position of the game, whose key is 0, so keys of different games say nothing about
// each other. makeMove and unmakeMove drive all of this step by step.
class HashState : public Board {
 public:
  HashState();

  // Opens the entry of the next depth, as a copy of the present one.
  void pushKeys() {
    assert(indexTop < indexHistory + historyCapacity - 1);
    lockTop[1] = lockTop[0];
    indexTop[1] = indexTop[0];
    slotTop[1] = slotTop[0];
    ++lockTop;
    ++indexTop;
    ++slotTop;
  }
  // Enters or removes a piece.
  void toggleKey(Square square, std::int32_t keyIndex) {
    *lockTop ^= lockKeys[square][keyIndex];
    *indexTop ^= indexKeys[square][keyIndex];
    *slotTop = *indexTop & static_cast<std::uint32_t>(tableMask);
  }
  // Goes back to the entry of the previous depth; nothing is recomputed.
  void popKeys() {
    assert(indexTop > indexHistory);
    --lockTop;
    --indexTop;
    --slotTop;
  }

  // Counts the present position. A fifth position in a bucket is not counted.
  void recordPosition();
  // Takes the present position out of the count. Exact as long as positions go in the reverse order of their
  // coming.
  void forgetPosition();

  static constexpr std::int32_t buckets = 512;
  static constexpr std::int32_t ways = 4;
  static constexpr std::int32_t bucketOf(std::uint32_t indexKey) {
    return static_cast<std::int32_t>(indexKey & (buckets - 1));
  }

  std::int32_t tableSize = 0x80000;
  std::int32_t tableMask = tableSize - 1;
  std::uint32_t* lockTop = lockHistory;  // the keys of the present position, in the histories below
  std::uint32_t* indexTop = indexHistory;
  std::uint32_t* slotTop = slotHistory;  // always *indexTop & tableMask, but for entry 0

  // By depth; entry 0, the start position, is 0.
  std::uint32_t indexHistory[historyCapacity] = {};
  std::uint32_t slotHistory[historyCapacity] = {};
  std::uint32_t lockHistory[historyCapacity] = {};
  std::uint32_t lockKeys[squareCount][keyColumns];
  std::uint32_t indexKeys[squareCount][keyColumns];
  // The bucket is the low end of the index key; each way holds a lock key. A way whose count is 0 is free,
  // whatever key it still holds.
  std::uint32_t repetitionKeys[buckets][ways] = {};
  std::uint8_t repetitionCounts[buckets][ways] = {};
};

}  // namespace quorvane

#endif  // QUORVANE_BOARD_HASH_STATE_H_

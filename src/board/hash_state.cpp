#include "board/hash_state.h"

#include <cassert>

namespace quorvane {

namespace {

// Linear congruential generator, modulus 2^32, of which bits 16 to 30 are used.
class KeyGenerator {
 public:
  explicit KeyGenerator(std::uint32_t seed) : state(seed) {}

  // Three draws of 15 bits, the first on top; only the two lowest bits of that one fit.
  std::uint32_t key() {
    const std::uint32_t high = draw();
    const std::uint32_t middle = draw();
    const std::uint32_t low = draw();
    return (((high << 15) | middle) << 15) | low;
  }

 private:
  std::uint32_t draw() {
    state = state * 214013U + 2531011U;
    return (state >> 16) & 0x7fffU;
  }

  std::uint32_t state;
};

}  // namespace

HashState::HashState() {
  KeyGenerator generator(1);
  for (Square square = 0; square < squareCount; ++square) {
    for (std::int32_t column = 0; column < emptyKeyIndex; ++column) {
      indexKeys[square][column] = generator.key();
      lockKeys[square][column] = generator.key();
    }
    indexKeys[square][emptyKeyIndex] = 0;
    lockKeys[square][emptyKeyIndex] = 0;
  }
}

void HashState::recordPosition() {
  const std::int32_t bucket = bucketOf(*indexTop);
  for (std::int32_t way = 0; way < ways; ++way) {
    std::uint8_t& count = repetitionCounts[bucket][way];
    if (count == 0 || repetitionKeys[bucket][way] == *lockTop) {
      ++count;
      repetitionKeys[bucket][way] = *lockTop;
      return;
    }
  }
}

void HashState::forgetPosition() {
  const std::int32_t bucket = bucketOf(*indexTop);
  for (std::int32_t way = 0; way < ways; ++way) {
    if (repetitionKeys[bucket][way] == *lockTop) {
      assert(repetitionCounts[bucket][way] > 0);
      --repetitionCounts[bucket][way];
      return;
    }
  }
}

}  // namespace quorvane

#ifndef QUORVANE_PLAY_SEARCH_TRANSPOSITION_TABLE_H_
#define QUORVANE_PLAY_SEARCH_TRANSPOSITION_TABLE_H_

#include <cstdint>
#include <vector>

#include "play/position/move.h"

namespace quorvane::play {

// What the score of a search says about that of the position.
enum class Bound : std::uint8_t { none = 0, upper = 1, lower = 2, exact = 3 };

// What is remembered of a position. A mate is told from the position, not from the root.
struct Remembered {
  std::uint32_t check = 0;  // the low half of the key
  std::uint16_t move = 0;   // packed
  std::int16_t score = 0;
  std::int16_t judgement = 0;  // of the position itself; noJudgement if it was not asked for
  std::uint8_t depth = 0;
  std::uint8_t boundAndAge = 0;

  static constexpr std::int16_t noJudgement = -32768;
  Bound bound() const { return static_cast<Bound>(boundAndAge & 3); }
};

// Remembers positions that were searched, those of the present search and the deepest of earlier ones first.
// Buckets of one line of the processor's cache. What is found may be of another position, if rarely: its move
// need not exist.
class TranspositionTable {
 public:
  explicit TranspositionTable(std::int32_t megabytes) { resize(megabytes); }

  // Forgets all. Throws std::bad_alloc, and stays as it was, where memory does not suffice.
  void resize(std::int32_t megabytes);
  void clear();

  // Before each search.
  void growOlder() { age = static_cast<std::uint8_t>(age + ageStep); }

  // Null if the position is not known; valid until the next `remember`.
  const Remembered* find(std::uint64_t key) const;
  void remember(std::uint64_t key, Move move, std::int32_t score, std::int32_t judgement, std::int32_t depth,
                Bound bound);

  // How much of it the present search has filled, in thousandths.
  std::int32_t permilleUsed() const;

 private:
  static constexpr std::uint8_t ageStep = 4;
  static constexpr std::int32_t bucketSize = 5;
  struct alignas(64) Bucket {
    Remembered entries[bucketSize];
  };

  std::size_t indexOf(std::uint64_t key) const {
    return static_cast<std::size_t>((key >> 32) * buckets.size() >> 32);
  }
  bool isPresent(const Remembered& entry) const { return (entry.boundAndAge & ~3) == age; }

  std::vector<Bucket> buckets;
  std::uint8_t age = 0;
};

}  // namespace quorvane::play

#endif  // QUORVANE_PLAY_SEARCH_TRANSPOSITION_TABLE_H_

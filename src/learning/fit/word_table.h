#ifndef QUORVANE_LEARNING_FIT_WORD_TABLE_H_
#define QUORVANE_LEARNING_FIT_WORD_TABLE_H_

#include <cassert>
#include <cstddef>
#include <cstdint>
#include <utility>
#include <vector>

#include "board/types.h"
#include "learning/fit/prefetch.h"

namespace quorvane {

// A value for each of many different words: an open-addressed hash table with linear probing. `absent`, a
// value that no word is ever given, marks the words that are not there.
template <typename Value, Value absent>
class WordTable {
 public:
  struct Slot {
    ConfigurationWord word = 0;
    Value value = absent;

    bool isFree() const { return value == absent; }
  };

  // The slot of the word, or the free one where it belongs. Whoever gives that one a word and a value must
  // say so by `filled`. Valid until then.
  Slot& slotOf(ConfigurationWord word) {
    return slotOf(word, [](const Value&) { return true; });
  }
  // The same where several values may have one word: the slot with a value of which isSame says that it is
  // the one.
  template <typename IsSame>
  Slot& slotOf(ConfigurationWord word, IsSame isSame) {
    if (slots.empty()) slots.resize(smallestSize);
    return slotIn(slots, word, isSame);
  }
  // One more slot is in use. Moves the slots now and then, so that at most three quarters of them are.
  void filled() {
    assert(used < slots.size());
    if (4 * ++used < 3 * slots.size()) return;
    std::vector<Slot> larger(2 * slots.size());
    for (const Slot& slot : slots) {
      if (!slot.isFree()) slotIn(larger, slot.word, [](const Value&) { return false; }) = slot;
    }
    slots = std::move(larger);
  }

  // Brings the slot near at which the search for the word begins.
  void prefetchSlotOf(ConfigurationWord word) const {
    if (!slots.empty()) prefetch(&slots[indexOf(word, slots.size())]);
  }

  // In no order that means anything.
  const std::vector<Slot>& all() const { return slots; }

 private:
  static constexpr std::size_t smallestSize = 256;  // a power of two, as every other size

  static std::size_t indexOf(ConfigurationWord word, std::size_t size) {
    // Fibonacci hashing: the upper half of the product depends on every bit of the word.
    return static_cast<std::size_t>((word * 0x9e3779b97f4a7c15U) >> 32) & (size - 1);
  }
  template <typename IsSame>
  static Slot& slotIn(std::vector<Slot>& table, ConfigurationWord word, IsSame isSame) {
    std::size_t index = indexOf(word, table.size());
    while (!table[index].isFree() && !(table[index].word == word && isSame(table[index].value))) {
      index = (index + 1) & (table.size() - 1);
    }
    return table[index];
  }

  std::vector<Slot> slots;
  std::size_t used = 0;
};

}  // namespace quorvane

#endif  // QUORVANE_LEARNING_FIT_WORD_TABLE_H_

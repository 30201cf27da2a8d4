#ifndef QUORVANE_EVALUATOR_WORD_CACHE_H_
#define QUORVANE_EVALUATOR_WORD_CACHE_H_

#include <cassert>
#include <cstdint>
#include <vector>

#include "evaluator/learned_network.h"

namespace quorvane::evaluator {

// Values of words under one network, which outlives it; direct-mapped. Values are kept unrounded, so that
// nothing comes out differently.
class WordCache {
 public:
  explicit WordCache(const LearnedNetwork& cached) : network(cached), entries(size) {}

  double valueOf(PositionType type, std::int32_t kind, ConfigurationWord word) {
    assert(type >= 0 && type < positionTypeCount && kind >= 0 && kind < pieceKindCount);
    const auto list = static_cast<std::uint32_t>(type * pieceKindCount + kind);
    Entry& entry = entries[indexOf(list, word)];
    if (entry.word != word || entry.list != list) entry = {word, list, network.valueOf(type, kind, word)};
    return entry.value;
  }

 private:
  // As it begins an entry is right already: no pattern fires on the word 0.
  struct Entry {
    ConfigurationWord word = 0;
    std::uint32_t list = 0;
    double value = 0.0;
  };
  static constexpr std::uint32_t sizeBits = 16;
  static constexpr std::size_t size = std::size_t{1} << sizeBits;

  // Multiplicative hashing by the golden ratio; the list moves the words of each type and kind by a shift of
  // their own.
  static std::uint32_t indexOf(std::uint32_t list, ConfigurationWord word) {
    constexpr std::uint32_t goldenRatio = 0x9e3779b1;
    return (word * goldenRatio + list * (goldenRatio << 7)) >> (32 - sizeBits);
  }

  const LearnedNetwork& network;
  std::vector<Entry> entries;
};

}  // namespace quorvane::evaluator

#endif  // QUORVANE_EVALUATOR_WORD_CACHE_H_

#ifndef QUORVANE_LEARNING_FIT_CACHE_MODEL_H_
#define QUORVANE_LEARNING_FIT_CACHE_MODEL_H_

#include <cstdint>
#include <vector>

#include "board/table.h"
#include "configurations/piece_configuration.h"
#include "learning/fit/configuration_table.h"
#include "network/eval_cache.h"

namespace quorvane {

// Tells which words a pass over all samples misses in the evaluation caches. Whether one is found does not
// depend on what the words are worth: so the caches keep a number of each word in place of its value.
class CacheModel {
 public:
  static constexpr std::uint32_t unknownNumber = ConfigurationTable::noNumber;

  // One look-up of a pass: a piece of a sample.
  struct LookUp {
    std::uint32_t sample;
    std::uint32_t piece;  // counted from 0, own pieces before opposing ones
  };

  // Where a piece is looked up among all caches, those of own and of opposing pieces of every kind.
  static std::uint32_t indexOf(const PieceConfiguration& piece, bool opposing) {
    const std::size_t cache = piece.kind + (opposing ? pieceKindCount : 0);
    return static_cast<std::uint32_t>(cache * EvalCache::size + EvalCache::indexOf(piece.word));
  }

  // Looks the word of that index up and stores it. All caches are clear at first. `number` is that of the
  // word, or unknownNumber; a word that is found brings the number that it was stored with, which may be
  // unknown as well.
  bool misses(ConfigurationWord word, std::uint32_t index, const LookUp& lookUp, std::uint32_t& number) {
    Cache& cache = caches[static_cast<std::int32_t>(index / EvalCache::size)];
    if (cache.entries.empty()) {
      cache.entries.resize(EvalCache::size);
      cache.firsts.resize(EvalCache::size, {0, {0, noPiece}});
    }
    Entry& entry = cache.entries[index % EvalCache::size];
    if (entry.word == 0) {
      First& first = cache.firsts[index % EvalCache::size];
      if (first.lookUp.piece == noPiece) first = {word, lookUp};
    }
    const bool missed = entry.word != word;
    number = missed ? number : entry.number;
    entry = {word, number};
    return missed;
  }

  // Gives a number to a word that was looked up without one, unless another has taken its place since.
  void setNumber(ConfigurationWord word, std::uint32_t index, std::uint32_t number) {
    Entry& entry =
        caches[static_cast<std::int32_t>(index / EvalCache::size)].entries[index % EvalCache::size];
    if (entry.word == word) entry.number = number;
  }

  // What the pass has missed, but would have found if it had begun with the caches as it has left them: first
  // look-ups of the words that were the last ones as well. The word 0 is found in a clear cache.
  std::vector<LookUp> foundAgain() const {
    std::vector<LookUp> found;
    for (const Cache& cache : caches) {
      for (std::size_t i = 0; i < cache.entries.size(); ++i) {
        const First& first = cache.firsts[i];
        if (first.word != 0 && first.word == cache.entries[i].word) found.push_back(first.lookUp);
      }
    }
    return found;
  }

 private:
  static constexpr std::uint32_t noPiece = 0xffffffff;

  // The word that was looked up first at an entry, if any was.
  struct First {
    ConfigurationWord word;
    LookUp lookUp;
  };

  struct Entry {
    ConfigurationWord word = 0;
    std::uint32_t number = unknownNumber;
  };

  struct Cache {
    std::vector<Entry> entries;  // none until the first is looked up
    std::vector<First> firsts;
  };

  Table<Cache, 2 * pieceKindCount> caches;  // own ones first
};

}  // namespace quorvane

#endif  // QUORVANE_LEARNING_FIT_CACHE_MODEL_H_

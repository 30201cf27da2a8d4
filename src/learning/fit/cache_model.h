#ifndef QUORVANE_LEARNING_FIT_CACHE_MODEL_H_
#define QUORVANE_LEARNING_FIT_CACHE_MODEL_H_

#include <cstdint>
#include <vector>

#include "board/table.h"
#include "configurations/piece_configuration.h"
#include "network/eval_cache.h"

namespace quorvane {

// Tells which words a pass over all samples misses in the evaluation caches. Keeps the words of the caches alone:
// whether one is found does not depend on what the words are worth.
class CacheModel {
 public:
  // One look-up of a pass: a piece of a sample.
  struct LookUp {
    std::uint32_t sample;
    std::uint32_t piece;  // counted from 0, own pieces before opposing ones
  };

  // Where a piece is looked up among the caches of its list, those of all kinds.
  static std::uint32_t indexOf(const PieceConfiguration& piece) {
    return static_cast<std::uint32_t>(piece.kind * EvalCache::size + EvalCache::indexOf(piece.word));
  }

  // Looks the word of that index up and stores it; `list` is 0 for own pieces and 1 for opposing ones. All caches are
  // clear at first.
  bool misses(ConfigurationWord word, std::uint32_t index, std::int32_t list, const LookUp& lookUp) {
    Cache& cache = caches[list][static_cast<std::int32_t>(index / EvalCache::size)];
    if (cache.words.empty()) {
      cache.words.resize(EvalCache::size);
      cache.firsts.resize(EvalCache::size, {0, {0, noPiece}});
    }
    const std::size_t entry = index % EvalCache::size;
    ConfigurationWord& stored = cache.words[entry];
    First& first = cache.firsts[entry];
    if (stored == 0 && first.lookUp.piece == noPiece) first = {word, lookUp};
    const bool missed = stored != word;
    stored = word;
    return missed;
  }

  // What the pass has missed, but would have found if it had begun with the caches as it has left them: first look-ups
  // of the words that were the last ones as well. The word 0 is found in a clear cache.
  std::vector<LookUp> foundAgain() const {
    std::vector<LookUp> found;
    for (const auto& ofList : caches) {
      for (const Cache& cache : ofList) {
        for (std::size_t entry = 0; entry < cache.words.size(); ++entry) {
          const First& first = cache.firsts[entry];
          if (first.word != 0 && first.word == cache.words[entry]) found.push_back(first.lookUp);
        }
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

  struct Cache {
    std::vector<ConfigurationWord> words;  // none until the first is looked up
    std::vector<First> firsts;
  };

  Table<Table<Cache, pieceKindCount>, 2> caches;
};

}  // namespace quorvane

#endif  // QUORVANE_LEARNING_FIT_CACHE_MODEL_H_

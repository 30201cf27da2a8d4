#ifndef QUORVANE_NETWORK_EVAL_CACHE_H_
#define QUORVANE_NETWORK_EVAL_CACHE_H_

#include <cstdint>
#include <vector>

#include "board/types.h"

namespace quorvane {

struct CacheEntry {
  ConfigurationWord word;
  float value;
};

// A direct-mapped cache of values of words: one probe, no second place. A zeroed entry is the empty state,
// and right as it stands: no pattern fires on the word 0.
class EvalCache {
 public:
  static constexpr std::size_t size = 65536;
  static constexpr std::size_t indexOf(ConfigurationWord word) { return (word >> 16) ^ (word & 0xffff); }

  CacheEntry& entryFor(ConfigurationWord word) {
    if (entries.empty()) entries.resize(size);
    return entries[indexOf(word)];
  }
  void clear() { entries.clear(); }

 private:
  std::vector<CacheEntry> entries;  // none until the first is asked for
};

}  // namespace quorvane

#endif  // QUORVANE_NETWORK_EVAL_CACHE_H_

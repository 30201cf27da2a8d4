#ifndef QUORVANE_PLAY_BENCH_BENCH_H_
#define QUORVANE_PLAY_BENCH_BENCH_H_

#include <cstdint>
#include <string>

#include "play/search/knowledge.h"

namespace quorvane::play {

// Searches forty positions of games for so many nodes each. Gives lines with the nodes, how many a second,
// and a signature, which is the same on every machine for the same knowledge and nodes, and hardly ever after
// a change to what is searched.
std::string benchText(const Knowledge& knowledge, std::uint64_t nodes);

}  // namespace quorvane::play

#endif  // QUORVANE_PLAY_BENCH_BENCH_H_

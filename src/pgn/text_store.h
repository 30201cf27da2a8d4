#ifndef QUORVANE_PGN_TEXT_STORE_H_
#define QUORVANE_PGN_TEXT_STORE_H_

#include <cstddef>
#include <memory>
#include <vector>

#include "pgn/text_builder.h"
#include "pgn/text_list.h"

namespace quorvane {

// Keeps lists of strings in large blocks of memory, which go all at once.
class TextStore {
 public:
  // A copy of what has been built, valid as long as the store.
  TextList keep(const TextBuilder& built);

 private:
  // Storage for so many bytes, aligned for the ends of a list.
  std::byte* take(std::size_t size);

  std::vector<std::unique_ptr<std::byte[]>> blocks;
  std::byte* next = nullptr;  // what is left of the last block
  std::size_t left = 0;
};

}  // namespace quorvane

#endif  // QUORVANE_PGN_TEXT_STORE_H_

#ifndef QUORVANE_LEARNING_SEARCH_DRAWN_PIECES_H_
#define QUORVANE_LEARNING_SEARCH_DRAWN_PIECES_H_

#include <cstdint>
#include <vector>

#include "board/table.h"
#include "learning/sample_set.h"

namespace quorvane {

// The pieces of one kind in the samples that the tests of the pattern search draw, as far as a pattern fires
// on them.
//
// Every test draws the same samples, so they are gathered once, and the pieces on which a pattern fires are
// found among those of the pattern that it extends.
class DrawnPieces {
 public:
  // Adds the pieces of one sample. `sign` is 1 for those of the own list, -1 for the opposing ones; a net
  // count is taken of all pieces that were added with the same `draw`, which come one after the other.
  void add(ConfigurationWord word, std::int32_t draw, std::int32_t sign);

  // Is the sum, over the draws, of the absolute net counts of the pieces that hold `bit` at least
  // `threshold`?
  bool isFrequent(std::int32_t threshold, ConfigurationWord bit) const;

  // The pieces that hold `bit`.
  DrawnPieces with(ConfigurationWord bit) const;

 private:
  struct Piece {
    ConfigurationWord word;
    std::int16_t draw;
    std::int16_t sign;
  };

  std::vector<Piece> pieces;
  ConfigurationWord bits = 0;  // that any of them holds
};

// What a search over the set draws, by PieceKind: `tries` samples, at most 2^15, with repetitions, always in
// the same sequence. Of an empty set there is nothing to draw.
Table<DrawnPieces, pieceKindCount> drawPieces(const SampleSet& set, std::int32_t tries);

}  // namespace quorvane

#endif  // QUORVANE_LEARNING_SEARCH_DRAWN_PIECES_H_

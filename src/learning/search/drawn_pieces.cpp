#include "learning/search/drawn_pieces.h"

#include <algorithm>
#include <cassert>
#include <cstdlib>

#include "learning/sample_walk.h"

namespace quorvane {

namespace {

// A multiplicative generator modulo 2^16; two of its numbers make a draw.
class SamplePicker {
 public:
  std::size_t draw(std::size_t sampleCount) {
    const std::uint32_t high = next();
    const std::uint32_t low = next();
    return ((high << 16) | low) % sampleCount;
  }

 private:
  std::uint32_t next() { return state = state * 239 % 65536; }

  std::uint32_t state = 5;
};

}  // namespace

void DrawnPieces::add(ConfigurationWord word, std::int32_t draw, std::int32_t sign) {
  assert((sign == 1 || sign == -1) && (pieces.empty() || pieces.back().draw <= draw));
  pieces.push_back({word, static_cast<std::int16_t>(draw), static_cast<std::int16_t>(sign)});
  bits |= word;
}

bool DrawnPieces::isFrequent(std::int32_t threshold, ConfigurationWord bit) const {
  if ((bits & bit) == 0) return false;
  std::int32_t sum = 0;
  std::int32_t netCount = 0;
  std::int32_t draw = 0;
  for (const Piece& piece : pieces) {
    if (piece.draw != draw) {
      sum += std::abs(netCount);
      if (sum >= threshold) return true;
      netCount = 0;
      draw = piece.draw;
    }
    if ((piece.word & bit) != 0) netCount += piece.sign;
  }
  return sum + std::abs(netCount) >= threshold;
}

DrawnPieces DrawnPieces::with(ConfigurationWord bit) const {
  DrawnPieces result;
  result.pieces.resize(pieces.size());
  Piece* end = result.pieces.data();
  for (const Piece& piece : pieces) {
    // Without a branch: it would be mispredicted half the time.
    *end = piece;
    const bool holds = (piece.word & bit) != 0;
    end += holds ? 1 : 0;
    result.bits |= holds ? piece.word : 0;
  }
  result.pieces.resize(static_cast<std::size_t>(end - result.pieces.data()));
  return result;
}

Table<DrawnPieces, pieceKindCount> drawPieces(const SampleSet& set, std::int32_t tries) {
  assert(tries >= 0 && tries <= 1 << 15);
  Table<DrawnPieces, pieceKindCount> drawn;
  if (set.empty()) return drawn;
  struct Draw {
    std::size_t index;
    std::vector<PieceConfiguration> ownList;
    std::vector<PieceConfiguration> opposingList;
  };
  std::vector<Draw> draws(static_cast<std::size_t>(tries));
  SamplePicker picker;
  for (Draw& draw : draws) draw.index = picker.draw(set.size());

  // Samples are read in their order alone.
  std::vector<Draw*> inOrder;
  inOrder.reserve(draws.size());
  for (Draw& draw : draws) inOrder.push_back(&draw);
  std::ranges::sort(inOrder, {}, [](const Draw* draw) { return draw->index; });
  SampleWalk walk(set);
  std::size_t read = 0;
  for (Draw* const draw : inOrder) {
    for (; read <= draw->index; ++read) walk.next();
    draw->ownList.assign(walk.ownList().begin(), walk.ownList().end());
    draw->opposingList.assign(walk.opposingList().begin(), walk.opposingList().end());
  }

  std::int32_t number = 0;
  for (const Draw& draw : draws) {
    for (const PieceConfiguration& piece : draw.ownList) drawn[piece.kind].add(piece.word, number, 1);
    for (const PieceConfiguration& piece : draw.opposingList) drawn[piece.kind].add(piece.word, number, -1);
    ++number;
  }
  return drawn;
}

}  // namespace quorvane

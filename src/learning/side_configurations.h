#ifndef QUORVANE_LEARNING_SIDE_CONFIGURATIONS_H_
#define QUORVANE_LEARNING_SIDE_CONFIGURATIONS_H_

#include <cstdint>
#include <span>

#include "board/piece.h"
#include "board/table.h"
#include "learning/sample.h"

namespace quorvane {

// The configurations of one side, in the order of its ring.
class SideConfigurations {
 public:
  // Of the ring of `king`, as Network::computeConfigurations has left them.
  explicit SideConfigurations(Piece* king) {
    forEachInRing(king, [&](const Piece& piece) {
      pieces[count++] = {piece.configuration, static_cast<std::uint8_t>(piece.kind)};
    });
  }

  std::span<const PieceConfiguration> list() const {
    return {pieces.begin(), static_cast<std::size_t>(count)};
  }

 private:
  Table<PieceConfiguration, 16> pieces;
  std::int32_t count = 0;
};

}  // namespace quorvane

#endif  // QUORVANE_LEARNING_SIDE_CONFIGURATIONS_H_

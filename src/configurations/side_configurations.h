#ifndef QUORVANE_CONFIGURATIONS_SIDE_CONFIGURATIONS_H_
#define QUORVANE_CONFIGURATIONS_SIDE_CONFIGURATIONS_H_

#include <cstdint>
#include <span>

#include "board/piece.h"
#include "board/ring.h"
#include "board/table.h"
#include "configurations/piece_configuration.h"

namespace quorvane {

// The configurations of one side, in the order of its ring.
class SideConfigurations {
 public:
  // Of the ring of `king`, as ConfigurationPass::computeConfigurations has left them.
  explicit SideConfigurations(Piece* king) {
    for (const Piece& piece : Ring(king)) {
      pieces[count++] = {piece.configuration, static_cast<std::uint8_t>(piece.kind)};
    }
  }

  std::span<const PieceConfiguration> list() const {
    return {pieces.begin(), static_cast<std::size_t>(count)};
  }

 private:
  Table<PieceConfiguration, piecesPerSide> pieces;
  std::int32_t count = 0;
};

}  // namespace quorvane

#endif  // QUORVANE_CONFIGURATIONS_SIDE_CONFIGURATIONS_H_

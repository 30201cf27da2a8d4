#ifndef QUORVANE_BOARD_PIECE_LETTER_H_
#define QUORVANE_BOARD_PIECE_LETTER_H_

#include <cstdint>
#include <initializer_list>
#include <limits>

#include "board/table.h"
#include "board/types.h"

namespace quorvane {

// The letter of FEN for a piece: a capital for White.
constexpr char pieceLetter(Side side, std::int32_t kind) {
  return (side == white ? "PNBRQK" : "pnbrqk")[kind];
}

struct NamedPiece {
  Side side;
  PieceKind kind;
};

inline constexpr auto piecesByLetter = [] {
  Table<NamedPiece, std::numeric_limits<unsigned char>::max() + 1> table{};
  for (NamedPiece& piece : table) piece = {noSide, emptyKind};
  for (const Side side : {black, white}) {
    for (std::int32_t kind = 0; kind < pieceKindCount; ++kind)
      table[pieceLetter(side, kind)] = {side, static_cast<PieceKind>(kind)};
  }
  return table;
}();
// The other way round: noSide and emptyKind for a character that names no piece.
constexpr NamedPiece pieceOfLetter(char letter) {
  return piecesByLetter[static_cast<unsigned char>(letter)];
}

}  // namespace quorvane

#endif  // QUORVANE_BOARD_PIECE_LETTER_H_

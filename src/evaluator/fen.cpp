#include "board/strict_fen.h"
#include "evaluator/given_position.h"

namespace quorvane::evaluator {

namespace {

quorvane_status statusOf(StrictFen::Fault fault) {
  switch (fault) {
    case StrictFen::Fault::none:
      return QUORVANE_OK;
    case StrictFen::Fault::side:
      return QUORVANE_FEN_SIDE;
    case StrictFen::Fault::castling:
      return QUORVANE_FEN_CASTLING;
    case StrictFen::Fault::enPassant:
      return QUORVANE_FEN_EN_PASSANT;
    default:
      return QUORVANE_FEN_BOARD;
  }
}

}  // namespace

quorvane_status readFen(std::string_view text, quorvane_position& position) {
  const StrictFen fen(text);
  if (fen.pieces().size() > QUORVANE_MAX_PIECES) return QUORVANE_PIECE_COUNT;
  if (fen.fault != StrictFen::Fault::none) return statusOf(fen.fault);
  position = {};
  for (const auto& [side, kind, square] : fen.pieces()) {
    position.pieces[position.count++] = {
        static_cast<std::uint8_t>(kind + (side == white ? 0 : QUORVANE_BLACK_PAWN)),
        static_cast<std::uint8_t>(square)};
  }
  position.side_to_move = static_cast<std::uint8_t>(fen.sideToMove());
  return QUORVANE_OK;
}

}  // namespace quorvane::evaluator

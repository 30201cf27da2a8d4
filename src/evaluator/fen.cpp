#include <algorithm>
#include <cstdint>

#include "board/types.h"
#include "evaluator/given_position.h"

namespace quorvane::evaluator {

namespace {

constexpr std::string_view whiteSpace = " \t\n\v\f\r";
// The letters of the pieces, by quorvane_piece.
constexpr std::string_view pieceLetters = "PNBRQK..pnbrqk";

// Takes the next field off the front of the text; empty where there is none.
std::string_view takeField(std::string_view& text) {
  text.remove_prefix(std::min(text.find_first_not_of(whiteSpace), text.size()));
  const std::string_view field = text.substr(0, text.find_first_of(whiteSpace));
  text.remove_prefix(field.size());
  return field;
}

quorvane_status readBoard(std::string_view field, quorvane_position& position) {
  std::int32_t rank = 7;
  std::int32_t file = 0;
  for (const char character : field) {
    if (character == '/') {
      if (file != 8 || rank == 0) return QUORVANE_FEN_BOARD;
      --rank;
      file = 0;
    } else if (character >= '1' && character <= '8') {
      file += character - '0';
    } else {
      const std::size_t piece = character == '.' ? std::string_view::npos : pieceLetters.find(character);
      if (piece == std::string_view::npos || file >= 8) return QUORVANE_FEN_BOARD;
      if (position.count == QUORVANE_MAX_PIECES) return QUORVANE_PIECE_COUNT;
      auto& placed = position.pieces[position.count++];
      placed.piece = static_cast<std::uint8_t>(piece);
      placed.square = static_cast<std::uint8_t>(squareAt(rank, file++));
    }
    if (file > 8) return QUORVANE_FEN_BOARD;
  }
  return rank == 0 && file == 8 ? QUORVANE_OK : QUORVANE_FEN_BOARD;
}

bool isCastling(std::string_view field) {
  // The last sixteen are the files of castling rooks, as they stand for positions of Chess960.
  constexpr std::string_view letters = "KQkqABCDEFGHabcdefgh";
  return field == "-" || field.find_first_not_of(letters) == std::string_view::npos;
}

bool isEnPassant(std::string_view field) {
  return field.empty() || field == "-" ||
         (field.size() == 2 && field[0] >= 'a' && field[0] <= 'h' && field[1] >= '1' && field[1] <= '8');
}

}  // namespace

quorvane_status readFen(std::string_view fen, quorvane_position& position) {
  quorvane_position read{};
  const quorvane_status status = readBoard(takeField(fen), read);
  if (status != QUORVANE_OK) return status;
  const std::string_view side = takeField(fen);
  if (side != "w" && side != "b") return QUORVANE_FEN_SIDE;
  read.side_to_move = side == "w" ? QUORVANE_WHITE : QUORVANE_BLACK;
  if (!isCastling(takeField(fen))) return QUORVANE_FEN_CASTLING;
  if (!isEnPassant(takeField(fen))) return QUORVANE_FEN_EN_PASSANT;
  position = read;
  return QUORVANE_OK;
}

}  // namespace quorvane::evaluator

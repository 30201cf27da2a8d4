#include "board/strict_fen.h"

#include <algorithm>

namespace quorvane {

namespace {

constexpr std::string_view whiteSpace = " \t\n\v\f\r";

// Takes the next field off the front of the text; empty where there is none.
std::string_view takeField(std::string_view& text) {
  text.remove_prefix(std::min(text.find_first_not_of(whiteSpace), text.size()));
  const std::string_view field = text.substr(0, text.find_first_of(whiteSpace));
  text.remove_prefix(field.size());
  return field;
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

StrictFen::StrictFen(std::string_view text) {
  readBoard(takeField(text));
  if (fault != Fault::none) return;
  side = takeField(text);
  if (side != "w" && side != "b") {
    fault = Fault::side;
  } else if (castling = takeField(text); !isCastling(castling)) {
    fault = Fault::castling;
  } else if (enPassant = takeField(text); !isEnPassant(enPassant)) {
    fault = Fault::enPassant;
  } else {
    counts = text;
  }
}

void StrictFen::readBoard(std::string_view board) {
  ranks = 1 + std::ranges::count(board, '/');
  for (;; --rank) {
    const std::string_view text = board.substr(0, board.find('/'));
    fault = readRank(text);
    if (rank == 0 || text.size() == board.size() || fault != Fault::none) break;
    board.remove_prefix(text.size() + 1);
  }
  if (ranks != 8) fault = Fault::ranks;
}

StrictFen::Fault StrictFen::readRank(std::string_view text) {
  files = 0;
  for (const char character : text) {
    if (character >= '1' && character <= '8') {
      files += character - '0';
      continue;
    }
    const NamedPiece piece = pieceOfLetter(character);
    if (piece.kind == emptyKind) {
      letter = character;
      return Fault::letter;
    }
    if (files < 8) {
      placed[static_cast<std::int32_t>(pieceCount++)] = {piece.side, piece.kind,
                                                         squareAt(rank, static_cast<std::int32_t>(files))};
    }
    ++files;
  }
  return files == 8 ? Fault::none : Fault::files;
}

Placement StrictFen::placement() const {
  Placement placement;
  for (const auto& [pieceSide, kind, square] : pieces()) placement.append(pieceSide, kind, square);
  return placement;
}

}  // namespace quorvane

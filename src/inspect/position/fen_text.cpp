#include "inspect/position/fen_text.h"

#include <algorithm>
#include <cstdlib>

#include "board/piece.h"
#include "board/placement.h"
#include "board/square_name.h"

namespace quorvane::inspect {

namespace {

// Eight files of pieces and free squares.
std::string faultInRank(std::string_view rank, std::int32_t number) {
  const std::string name = "rank " + std::to_string(number);
  std::int32_t files = 0;
  for (const char character : rank) {
    if (character >= '1' && character <= '8') {
      files += character - '0';
    } else if (placementLetters.find(character) != std::string_view::npos) {
      ++files;
    } else {
      return name + " holds '" + character + "', which is no piece";
    }
  }
  if (files != 8) return name + " has " + std::to_string(files) + " files";
  const bool outer = number == 1 || number == 8;
  return outer && rank.find_first_of("pP") != std::string_view::npos ? "a pawn stands on " + name : "";
}

}  // namespace

std::string faultInFen(std::string_view fen) {
  const std::size_t boardEnd = std::min(fen.find(' '), fen.size());
  std::string_view board = fen.substr(0, boardEnd);
  const auto ranks = std::ranges::count(board, '/') + 1;
  if (ranks != 8) return "has " + std::to_string(ranks) + (ranks == 1 ? " rank" : " ranks") + " instead of 8";
  for (std::int32_t number = 8; number >= 1; --number) {
    const std::size_t end = std::min(board.find('/'), board.size());
    std::string fault = faultInRank(board.substr(0, end), number);
    if (!fault.empty()) return fault;
    board.remove_prefix(std::min(end + 1, board.size()));
  }
  for (const char king : {'K', 'k'}) {
    if (std::ranges::count(fen.substr(0, boardEnd), king) != 1)
      return "does not give each side exactly one king";
  }
  const std::size_t sideBegin = std::min(fen.find_first_not_of(' ', boardEnd), fen.size());
  const std::string_view side = fen.substr(sideBegin, fen.find(' ', sideBegin) - sideBegin);
  if (side.empty()) return "does not say which side is to move";
  if (side != "w" && side != "b")
    return "names '" + std::string(side) + "' as the side to move, which is neither w nor b";
  return {};
}

std::string PositionText::fen() {
  std::string text;
  for (std::int32_t rank = 7; rank >= 0; --rank) {
    char empty = '0';
    for (std::int32_t file = 0; file < 8; ++file) {
      const Piece& piece = *board[squareAt(rank, file)];
      if (piece.kind == emptyKind) {
        ++empty;
        continue;
      }
      if (empty != '0') text += std::exchange(empty, '0');
      text += (piece.side == white ? "PNBRQK" : "pnbrqk")[piece.kind];
    }
    if (empty != '0') text += empty;
    if (rank != 0) text += '/';
  }
  text += currentMove.sideToMove == white ? " w " : " b ";

  std::string castling;
  const auto unmoved = [](PieceKind kind, Side side, Square square) {
    const Piece& piece = *board[square];
    return piece.kind == kind && piece.side == side && piece.moveCount == 0;
  };
  for (const Side side : {white, black}) {
    const Square corner = squareAt(relativeRank(side, 0), 0);
    if (!unmoved(kingKind, side, corner + 4)) continue;
    if (unmoved(rookKind, side, corner + 7)) castling += side == white ? 'K' : 'k';
    if (unmoved(rookKind, side, corner)) castling += side == white ? 'Q' : 'q';
  }
  text += castling.empty() ? "-" : castling;
  text += ' ' + (enPassantSquare == noSquare ? "-" : squareName(enPassantSquare));
  const bool blackBegan = (history->depth % 2 == 0) == (currentMove.sideToMove == black);
  return text + " 0 " + std::to_string((history->depth + (blackBegan ? 1 : 0)) / 2 + 1);
}

std::string PositionText::fault() {
  const Square one = kings[white]->square;
  const Square other = kings[black]->square;
  if (std::abs(rankOf(one) - rankOf(other)) <= 1 && std::abs(fileOf(one) - fileOf(other)) <= 1) {
    return "puts the kings side by side";
  }
  if (kings[opponent(currentMove.sideToMove)]->isAttacked())
    return "leaves the side that is not to move in check";
  return {};
}

}  // namespace quorvane::inspect

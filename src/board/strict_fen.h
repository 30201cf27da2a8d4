#ifndef QUORVANE_BOARD_STRICT_FEN_H_
#define QUORVANE_BOARD_STRICT_FEN_H_

#include <cstdint>
#include <span>
#include <string_view>

#include "board/piece_letter.h"
#include "board/placement.h"
#include "board/table.h"
#include "board/types.h"

namespace quorvane {

// A FEN, held to its form: eight ranks of eight files, "w" or "b", castling rights and en passant square, of
// which the last two may be missing. White space stands between the fields. What follows them is not looked
// at, nor whether the pieces can stand on a board. PgnGame::parseFen, which reads FEN tags, takes nearly any
// text.
struct StrictFen {
  // Reads the text, which must outlive what is read.
  explicit StrictFen(std::string_view text);

  // The first of these that is wrong.
  enum class Fault { none, ranks, letter, files, side, castling, enPassant };
  Fault fault = Fault::none;

  std::int64_t ranks = 0;
  std::int32_t rank = 7;   // the last that was read, 0 to 7: that with the letter or the files that are wrong
  char letter = '\0';      // what is no piece there
  std::int64_t files = 0;  // of the rank
  std::string_view side;   // the field; empty if there is none, or the board is wrong
  // The fields behind it, and what follows them; empty where there is none, or something before is wrong.
  std::string_view castling;
  std::string_view enPassant;
  std::string_view counts;

  Side sideToMove() const { return side == "w" ? white : black; }

  struct PlacedPiece {
    Side side;
    PieceKind kind;
    Square square;
  };
  // In the order of the text, up to what is wrong with its ranks.
  std::span<const PlacedPiece> pieces() const { return {placed.begin(), pieceCount}; }
  Placement placement() const;

 private:
  void readBoard(std::string_view board);
  Fault readRank(std::string_view text);

  Table<PlacedPiece, squareCount> placed;
  std::size_t pieceCount = 0;
};

}  // namespace quorvane

#endif  // QUORVANE_BOARD_STRICT_FEN_H_

#include "play/position/move_text.h"

#include <algorithm>

#include "board/piece_letter.h"
#include "board/pseudo_legal_moves.h"
#include "board/square_name.h"

namespace quorvane::play {

namespace {

// What tells a piece's move from those of its like to the same square: a file, a rank or both.
std::string originOf(const Position& position, Move move) {
  const PieceKind kind = position.kindAt(move.from);
  bool several = false;
  bool sharesFile = false;
  bool sharesRank = false;
  for (const Move other : legalMoves(position)) {
    if (other.to != move.to || other.from == move.from || position.kindAt(other.from) != kind) continue;
    several = true;
    sharesFile = sharesFile || fileOf(other.from) == fileOf(move.from);
    sharesRank = sharesRank || rankOf(other.from) == rankOf(move.from);
  }
  const std::string name = squareName(move.from);
  if (!several) return {};
  if (!sharesFile) return name.substr(0, 1);
  return sharesRank ? name : name.substr(1);
}

std::string withoutCheck(const Position& position, Move move) {
  if (move.kind == castleKingSide) return "O-O";
  if (move.kind == castleQueenSide) return "O-O-O";
  std::string text;
  const PieceKind kind = position.kindAt(move.from);
  if (kind != pawnKind) {
    text = pieceLetter(white, kind) + originOf(position, move);
  } else if (position.takes(move)) {
    text = squareName(move.from).substr(0, 1);
  }
  if (position.takes(move)) text += 'x';
  text += squareName(move.to);
  if (move.promotes()) {
    text += '=';
    text += pieceLetter(white, promotedKind(static_cast<MoveKind>(move.kind)));
  }
  return text;
}

}  // namespace

std::string coordinates(Move move) {
  if (!move) return "0000";
  std::string text = squareName(move.from) + squareName(move.to);
  if (move.promotes()) text += pieceLetter(black, promotedKind(static_cast<MoveKind>(move.kind)));
  return text;
}

Move moveOf(const Position& position, std::string_view written) {
  const MoveList moves = legalMoves(position);
  const Move* const found =
      std::ranges::find_if(moves, [&](Move move) { return coordinates(move) == written; });
  return found == moves.end() ? Move{} : *found;
}

std::string standardNotation(const Position& position, Move move) {
  Position next = position;
  next.make(move);
  std::string text = withoutCheck(position, move);
  if (next.inCheck()) text += legalMoves(next).empty() ? '#' : '+';
  return text;
}

Move moveOf(const Position& position, const DecodedMove& decoded) {
  MoveList moves = legalMoves(position);
  const std::int32_t promoted = decoded.promotion == noPromotion ? queenKind : decoded.promotion;
  moves.keepIf([&](Move move) {
    MoveRecord record{};
    record.from = move.from;
    record.to = move.to;
    // By its file alone, without a rank, only castling is named.
    if (decoded.kind == kingKind && decoded.toRank == anyRankOrFile &&
        !isCastling(static_cast<MoveKind>(move.kind))) {
      return false;
    }
    return position.kindAt(move.from) == decoded.kind && PseudoLegalMoves::fits(decoded, record) &&
           (!move.promotes() || promotedKind(static_cast<MoveKind>(move.kind)) == promoted);
  });
  return moves.size() == 1 ? moves[0] : Move{};
}

}  // namespace quorvane::play

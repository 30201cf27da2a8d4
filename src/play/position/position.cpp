#include "play/position/position.h"

#include <algorithm>
#include <cassert>
#include <charconv>

#include "board/fen_fault.h"
#include "board/piece_letter.h"
#include "board/square_name.h"
#include "board/strict_fen.h"
#include "play/position/position_keys.h"

namespace quorvane::play {

namespace {

constexpr Square ahead(Side side) {
  return side == white ? whitePawnRules.ahead : blackPawnRules.ahead;
}

constexpr Square kingHome(Side side) {
  return squareAt(relativeRank(side, 0), 4);
}

// Takes the next word off the front of a text, and as a number what it is, if that is one below a million.
bool takeNumber(std::string_view& text, std::int32_t& number) {
  constexpr std::int32_t limit = 1'000'000;
  text.remove_prefix(std::min(text.find_first_not_of(" \t\n\v\f\r"), text.size()));
  std::int32_t read = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), read);
  if (error != std::errc{} || read < 0 || read >= limit) return false;
  text.remove_prefix(static_cast<std::size_t>(end - text.data()));
  number = read;
  return true;
}

}  // namespace

Position::Position(std::string_view text) {
  const StrictFen read(text);
  const auto refuse = [](const std::string& fault) {
    if (!fault.empty()) throw BadPosition(fault);
  };
  refuse(faultIn(read));
  if (read.fault == StrictFen::Fault::castling) refuse("names castling rights that there are not");
  if (read.fault == StrictFen::Fault::enPassant) refuse("has an en passant field that is no square");
  if (!read.placement().fitsBoard())
    refuse("has more than " + std::to_string(piecesPerSide) + " pieces on a side");

  for (std::uint8_t& kind : kinds) kind = emptyKind;
  for (const auto& [side, kind, square] : read.pieces()) put(side, kind, square);
  sideToMove = read.sideToMove();
  if (sideToMove == black) key ^= positionKeys.blackToMove;
  const Square waiting = pieces.king(opponent(sideToMove));
  if ((attackSet[kingKind][waiting] & pieces[sideToMove][kingKind]) != 0)
    refuse("puts the kings side by side");
  if (isAttacked(sideToMove, waiting)) refuse("leaves the side that is not to move in check");
  findCheckers();
  readRights(read.castling);
  readCounts(read.counts);
  if (read.enPassant.size() == 2) {
    const Square jumpedOver = squareAt(read.enPassant[1] - '1', read.enPassant[0] - 'a');
    const Square start = jumpedOver + ahead(sideToMove);
    const Square pawn = jumpedOver - ahead(sideToMove);
    if (relativeRank(sideToMove, rankOf(jumpedOver)) == 5 && kindAt(jumpedOver) == emptyKind &&
        kindAt(start) == emptyKind && (pieces[opponent(sideToMove)][pawnKind] & setOf(pawn)) != 0) {
      allowEnPassant(jumpedOver);
    }
  }
}

void Position::readRights(std::string_view field) {
  for (const Side side : {black, white}) {
    if ((pieces[side][kingKind] & setOf(kingHome(side))) == 0) continue;
    for (const bool kingSide : {false, true}) {
      const SquareSet corner = setOf(kingHome(side) + stepToCastlingRook(kingSide));
      const char letter = pieceLetter(side, kingSide ? kingKind : queenKind);
      const char ofRook = static_cast<char>((side == white ? 'A' : 'a') + (kingSide ? 7 : 0));
      const bool named = field.find(letter) != field.npos || field.find(ofRook) != field.npos;
      if (named && (pieces[side][rookKind] & corner) != 0) rights |= rightOf(side, kingSide);
    }
  }
  key ^= positionKeys.castling[rights];
}

void Position::readCounts(std::string_view text) {
  if (takeNumber(text, halfmoves)) takeNumber(text, moveNumber);
  moveNumber = std::max(moveNumber, 1);
}

std::string Position::fen() const {
  std::string text;
  for (std::int32_t rank = 7; rank >= 0; --rank) {
    char empty = '0';
    for (std::int32_t file = 0; file < 8; ++file) {
      const Square square = squareAt(rank, file);
      if (kindAt(square) == emptyKind) {
        ++empty;
        continue;
      }
      if (empty != '0') text += std::exchange(empty, '0');
      text += pieceLetter((all[white] & setOf(square)) != 0 ? white : black, kindAt(square));
    }
    if (empty != '0') text += empty;
    if (rank != 0) text += '/';
  }
  text += sideToMove == white ? " w " : " b ";
  const std::size_t before = text.size();
  for (const Side side : {white, black}) {
    if (mayCastle(side, true)) text += pieceLetter(side, kingKind);
    if (mayCastle(side, false)) text += pieceLetter(side, queenKind);
  }
  if (text.size() == before) text += '-';
  text += ' ' + (enPassant == noSquare ? "-" : squareName(enPassant));
  return text + ' ' + std::to_string(halfmoves) + ' ' + std::to_string(moveNumber);
}

void Position::put(Side side, PieceKind kind, Square square) {
  kinds[square] = static_cast<std::uint8_t>(kind);
  pieces[side][kind] |= setOf(square);
  all[side] |= setOf(square);
  key ^= positionKeys.pieces[side][kind][square];
}

void Position::takeOff(Side side, Square square) {
  const PieceKind kind = kindAt(square);
  kinds[square] = emptyKind;
  pieces[side][kind] ^= setOf(square);
  all[side] ^= setOf(square);
  key ^= positionKeys.pieces[side][kind][square];
}

void Position::make(Move move) {
  assert(isLegal(move));
  const Side side = sideToMove;
  const PieceKind moved = kindAt(move.from);
  const auto kind = static_cast<MoveKind>(move.kind);
  const bool irreversible = moved == pawnKind || takes(move);
  if (takes(move)) {
    takeOff(opponent(side), kind == enPassantCapture ? move.to - ahead(side) : Square{move.to});
  }
  takeOff(side, move.from);
  put(side, move.promotes() ? promotedKind(kind) : moved, move.to);
  if (isCastling(kind)) {
    const bool kingSide = kind == castleKingSide;
    takeOff(side, move.from + stepToCastlingRook(kingSide));
    put(side, rookKind, (move.from + move.to) / 2);
    castled[side] = true;
  }
  if (rights != 0) {
    key ^= positionKeys.castling[rights];
    for (const Side owner : {black, white}) {
      const Square home = kingHome(owner);
      for (const Square touched : {move.from, move.to}) {
        if (touched == home || touched == home + stepToCastlingRook(true))
          rights &= static_cast<std::uint8_t>(~rightOf(owner, true));
        if (touched == home || touched == home + stepToCastlingRook(false))
          rights &= static_cast<std::uint8_t>(~rightOf(owner, false));
      }
    }
    key ^= positionKeys.castling[rights];
  }
  if (side == black) ++moveNumber;
  halfmoves = irreversible ? 0 : halfmoves + 1;
  if (enPassant != noSquare) key ^= positionKeys.enPassant[fileOf(enPassant)];
  enPassant = noSquare;
  sideToMove = opponent(side);
  key ^= positionKeys.blackToMove;
  findCheckers();
  if (kind == doubleStep) allowEnPassant((move.from + move.to) / 2);
}

void Position::allowEnPassant(Square jumpedOver) {
  const Side taking = sideToMove;
  const SquareSet beside = pawnAttacks(opponent(taking), setOf(jumpedOver)) & pieces[taking][pawnKind];
  for (const Square from : Squares(beside)) {
    const Move capture{static_cast<std::uint8_t>(from), static_cast<std::uint8_t>(jumpedOver),
                       enPassantCapture};
    if (!isLegal(capture)) continue;
    enPassant = jumpedOver;
    key ^= positionKeys.enPassant[fileOf(jumpedOver)];
    return;
  }
}

void Position::findCheckers() {
  checkers = attackers(opponent(sideToMove), pieces.king(sideToMove), occupied());
}

SquareSet Position::attackers(Side side, Square square, SquareSet whenOccupied) const {
  const SideSets& own = pieces[side];
  SquareSet found = pawnAttacks(opponent(side), setOf(square)) & own[pawnKind];
  found |= attackSet[knightKind][square] & own[knightKind];
  found |= attackSet[kingKind][square] & own[kingKind];
  const SquareSet oblique = (own[bishopKind] | own[queenKind]) & attackSet[bishopKind][square];
  const SquareSet straight = (own[rookKind] | own[queenKind]) & attackSet[rookKind][square];
  if (oblique != 0) found |= attacks(bishopKind, square, whenOccupied) & oblique;
  if (straight != 0) found |= attacks(rookKind, square, whenOccupied) & straight;
  return found;
}

bool Position::isLegal(Move move) const {
  const Side enemy = opponent(sideToMove);
  const Square king = pieces.king(sideToMove);
  if (move.from == king) {
    // Castling is generated only where it is legal.
    return isCastling(static_cast<MoveKind>(move.kind)) ||
           attackers(enemy, move.to, occupied() ^ setOf(king)) == 0;
  }
  const bool inPassing = move.kind == enPassantCapture;
  if (!inCheck() && !inPassing && (attackSet[queenKind][king] & setOf(move.from)) == 0) return true;
  const SquareSet taken = setOf(inPassing ? move.to - ahead(sideToMove) : Square{move.to});
  const SquareSet after = ((occupied() ^ setOf(move.from)) & ~taken) | setOf(move.to);
  return (attackers(enemy, king, after) & ~taken) == 0;
}

bool Position::hasTooLittleMaterial() const {
  const auto both = [this](PieceKind kind) { return pieces[white][kind] | pieces[black][kind]; };
  if ((both(pawnKind) | both(rookKind) | both(queenKind)) != 0) return false;
  const SquareSet bishops = both(bishopKind);
  if (both(knightKind) != 0) return bishops == 0 && !holdsSeveral(both(knightKind));
  constexpr SquareSet darkSquares = 0xaa55aa55aa55aa55;
  return (bishops & darkSquares) == 0 || (bishops & ~darkSquares) == 0;
}

}  // namespace quorvane::play

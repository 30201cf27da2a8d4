#include "inspect/position/san.h"

#include <optional>
#include <string_view>

#include "board/decoded_move.h"
#include "board/piece.h"
#include "board/piece_letter.h"
#include "board/pseudo_legal_moves.h"

namespace quorvane::inspect {

namespace {

// A move as its text gives it.
struct SanMove {
  DecodedMove move;
  bool castles = false;
};

bool isFile(char character) {
  return character >= 'a' && character <= 'h';
}

bool isRank(char character) {
  return character >= '1' && character <= '8';
}

// Takes the last character off the text if it is one of those; gives it, or 0.
char takeLast(std::string_view& text, std::string_view characters) {
  if (text.empty() || characters.find(text.back()) == std::string_view::npos) return '\0';
  const char last = text.back();
  text.remove_suffix(1);
  return last;
}

std::optional<SanMove> read(std::string_view san) {
  SanMove read;
  while (takeLast(san, "+#!?") != '\0') continue;
  if (san == "O-O" || san == "0-0" || san == "O-O-O" || san == "0-0-0") {
    read.castles = true;
    read.move.kind = kingKind;
    read.move.toFile = san.size() == 3 ? 6 : 2;
    return read;
  }
  if (const char promoted = takeLast(san, "NBRQ"); promoted != '\0') {
    read.move.promotion = pieceOfLetter(promoted).kind;
    takeLast(san, "=");
  }
  if (san.size() < 2 || !isRank(san.back()) || !isFile(san[san.size() - 2])) return {};
  read.move.toRank = san.back() - '1';
  read.move.toFile = san[san.size() - 2] - 'a';
  san.remove_suffix(2);
  takeLast(san, "x:-");
  if (const char rank = takeLast(san, "12345678"); rank != '\0') read.move.fromRank = rank - '1';
  if (const char file = takeLast(san, "abcdefgh"); file != '\0') read.move.fromFile = file - 'a';
  if (const char letter = takeLast(san, "PNBRQK"); letter != '\0')
    read.move.kind = pieceOfLetter(letter).kind;
  if (!san.empty()) return {};
  return read;
}

// The move of the generators that is wanted, none if this one is not. They leave out bishop and rook.
std::optional<MoveRecord> wantedAs(const SanMove& wanted, MoveRecord move) {
  if (!PseudoLegalMoves::fits(wanted.move, move)) return {};
  if (wanted.castles && !isCastling(move.kind)) return {};
  const bool promotes = move.kind >= promoteToQueen && move.kind <= promoteToRook;
  if (promotes != (wanted.move.promotion != noPromotion) || move.kind == promoteToKnight) return {};
  if (promotes) move.kind = promotionTo(wanted.move.promotion);
  return move;
}

}  // namespace

const char* textOf(SanFault fault) {
  constexpr const char* texts[] = {"nothing",
                                   "cannot be read",
                                   "fits no piece",
                                   "leaves the king in check",
                                   "fits more than one piece",
                                   "comes with the other side in check",
                                   "is one more than the board keeps"};
  static_assert(std::size(texts) == static_cast<std::size_t>(SanFault::tooLong) + 1);
  return texts[static_cast<std::size_t>(fault)];
}

SanFault SanMoves::play(const MoveElement& element) {
  if (element.kind != MoveElement::move) return SanFault::none;
  const std::optional<SanMove> wanted = read(element.text);
  if (!wanted) return SanFault::unreadable;
  if (history->depth + 2 >= depthLimit) return SanFault::tooLong;
  if (history->depth == 0 && kings[opponent(currentMove.sideToMove)]->isAttacked())
    return SanFault::opponentInCheck;
  std::optional<MoveRecord> found;
  bool anyFits = false;
  for (const MoveRecord& generated : PseudoLegalMoves::of(wanted->move.kind)) {
    const std::optional<MoveRecord> move = wantedAs(*wanted, generated);
    if (!move) continue;
    anyFits = true;
    if (!PseudoLegalMoves::isLegal(*move)) continue;
    if (found) return SanFault::ambiguous;
    found = move;
  }
  if (!found) return anyFits ? SanFault::kingInCheck : SanFault::noPiece;
  PseudoLegalMoves::makeIfLegal(*found);
  return SanFault::none;
}

}  // namespace quorvane::inspect

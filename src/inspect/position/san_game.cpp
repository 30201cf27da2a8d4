#include "inspect/position/san_game.h"

#include <optional>
#include <string_view>

#include "board/decoded_move.h"
#include "board/piece_letter.h"
#include "board/strict_fen.h"

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
  if (san.ends_with("e.p.")) san.remove_suffix(4);
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

bool isWanted(const SanMove& wanted, const play::Position& position, play::Move move) {
  const auto kind = static_cast<MoveKind>(move.kind);
  const auto agrees = [](std::int32_t asked, std::int32_t rankOrFile) {
    return asked == anyRankOrFile || asked == rankOrFile;
  };
  return position.kindAt(move.from) == wanted.move.kind && (!wanted.castles || isCastling(kind)) &&
         agrees(wanted.move.fromRank, rankOf(move.from)) && agrees(wanted.move.fromFile, fileOf(move.from)) &&
         agrees(wanted.move.toRank, rankOf(move.to)) && agrees(wanted.move.toFile, fileOf(move.to)) &&
         wanted.move.promotion == (move.promotes() ? std::int32_t{promotedKind(kind)} : noPromotion);
}

// The FEN of the game's tag; empty without one. As in the utility, White is to move where it names nobody;
// what does not name castling rights gets all.
std::string fenOf(const GameParts& parts) {
  std::string text(parts.tagValue("FEN").value_or(""));
  if (text.empty()) return text;
  if (text.find_first_of(" \t") == std::string::npos) text += " w";
  const StrictFen fen(text);
  return fen.fault == StrictFen::Fault::none && fen.castling.empty() ? text + " KQkq" : text;
}

}  // namespace

const char* textOf(SanFault fault) {
  constexpr const char* texts[] = {"nothing",
                                   "cannot be read",
                                   "fits no piece",
                                   "leaves the king in check",
                                   "fits more than one piece",
                                   "is played in no position of chess"};
  static_assert(std::size(texts) == static_cast<std::size_t>(SanFault::badStart) + 1);
  return texts[static_cast<std::size_t>(fault)];
}

SanGame::SanGame(const GameParts& parts) {
  const std::string fen = fenOf(parts);
  if (fen.empty()) return;
  try {
    reached = play::Position(fen);
  } catch (const play::BadPosition&) {
    startIsKnown = false;
  }
}

SanFault SanGame::play(const MoveElement& element) {
  if (element.kind != MoveElement::move) return SanFault::none;
  const std::optional<SanMove> wanted = read(element.text);
  if (!wanted) return SanFault::unreadable;
  if (!startIsKnown) return SanFault::badStart;
  play::MoveList moves;
  generateMoves(reached, false, moves);
  moves.keepIf([&](play::Move move) { return isWanted(*wanted, reached, move); });
  if (moves.empty()) return SanFault::noPiece;
  moves.keepIf([&](play::Move move) { return reached.isLegal(move); });
  if (moves.empty()) return SanFault::kingInCheck;
  if (moves.size() > 1) return SanFault::ambiguous;
  keys.push_back(reached.key);
  reached.make(moves[0]);
  return SanFault::none;
}

}  // namespace quorvane::inspect

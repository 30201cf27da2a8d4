#include "board/piece_letter.h"
#include "pgn/pgn_game.h"

namespace quorvane {

namespace {

// The kind that a capital names, emptyKind for any other character.
PieceKind kindOfLetter(char letter) {
  const NamedPiece piece = pieceOfLetter(letter);
  return piece.side == white ? piece.kind : emptyKind;
}

// O is castling, P a pawn that is named.
bool startsLikeMove(std::string_view token) {
  if (token.empty()) return false;
  const char first = token[0];
  return (first >= 'a' && first <= 'h') || first == 'O' || kindOfLetter(first) != emptyKind;
}

bool isSuffix(char character) {
  return character == '#' || character == '+' || character == '?' || character == '!';
}

}  // namespace

bool PgnGame::nextMove(DecodedMove& move) {
  const auto tokenCount = static_cast<std::int32_t>(tokens.size());
  std::string_view token;
  do {
    if (tokenCursor >= tokenCount) return false;
    token = tokens[static_cast<std::size_t>(tokenCursor++)];
  } while (!startsLikeMove(token));

  move = DecodedMove();
  if (token == "O-O" || token == "O-O-O") {
    move.toFile = token == "O-O" ? 6 : 2;
    move.kind = kingKind;
    return true;
  }

  // From here on the token is read from its end; in front of it there are characters 0.
  auto position = static_cast<std::ptrdiff_t>(token.size()) - 1;
  const auto characterAt = [token](std::ptrdiff_t index) {
    return index >= 0 ? token[static_cast<std::size_t>(index)] : '\0';
  };
  while (isSuffix(characterAt(position))) --position;

  const PieceKind promoted = kindOfLetter(characterAt(position));
  if (promoted >= knightKind && promoted <= queenKind) {
    move.promotion = promoted;
    position -= 2;  // over the letter and what stands before it, which should be an equals sign
  }

  move.toFile = characterAt(position - 1) - 'a';
  move.toRank = characterAt(position) - '1';
  if (move.toFile < 0 || move.toFile > 7 || move.toRank < 0 || move.toRank > 7) return false;
  position -= 2;
  if (position < 0) return true;

  if (characterAt(position) == 'x') --position;
  const char rank = characterAt(position);
  if (rank >= '1' && rank <= '8') {
    move.fromRank = rank - '1';
    --position;
  }
  if (position < 0) return true;
  const char file = characterAt(position);
  if (file >= 'a' && file <= 'h') {
    move.fromFile = file - 'a';
    --position;
  }
  if (position < 0) return true;
  const PieceKind named = kindOfLetter(characterAt(position));
  if (named != emptyKind) move.kind = named;
  return true;
}

std::int32_t PgnGame::result() const {
  for (std::size_t index = tokens.size(); index > 0; --index) {
    const std::string_view token = tokens[index - 1];
    if (token == "1-0") return whiteWon;
    if (token == "0-1") return blackWon;
    if (token == "1/2-1/2") return draw;
    if (token == "*") return noResult;
  }
  return noResult;
}

}  // namespace quorvane

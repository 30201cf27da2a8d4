#include "board/piece_letter.h"
#include "pgn/pgn_game.h"

namespace quorvane {

namespace {

// A walk over the text of a tag; behind its end it finds the character 0.
class FenCursor {
 public:
  FenCursor(std::string_view fullText, std::size_t start) : text(fullText), position(start) {}

  bool atEnd() const { return position >= text.size(); }
  char operator*() const { return peek(0); }
  char peek(std::size_t ahead) const {
    return position + ahead < text.size() ? text[position + ahead] : '\0';
  }
  void advance(std::size_t count = 1) { position += count; }

  // Blanks only: a tab is a character like any other.
  void skipBlanks() {
    while (!atEnd() && **this == ' ') advance();
  }
  bool atFieldEnd() const { return atEnd() || **this == ' '; }

 private:
  std::string_view text;
  std::size_t position;
};

std::int32_t codeOf(char character) {
  return static_cast<unsigned char>(character);
}

void readBoard(FenCursor& cursor, Placement& placement) {
  std::int32_t file = 0;
  Square rowBase = squareAt(7, 0);
  do {
    const char character = *cursor;
    if (const auto [side, kind] = pieceOfLetter(character); kind != emptyKind) {
      placement.append(side, kind, rowBase + file);
      ++file;
    } else if (character >= '1' && character <= '8') {
      file += character - '0';
    }
    if (file >= 8 || character == '/') {
      if (character != '/') cursor.advance();  // the next character is taken for the separator
      rowBase -= 8;
      file = 0;
    }
    cursor.advance();
  } while (rowBase >= 0 && !cursor.atEnd());
}

// Characters are not tested for being digits, and a long number wraps around.
std::int32_t readNumber(FenCursor& cursor, char end) {
  cursor.skipBlanks();
  std::uint32_t number = 0;
  for (; !cursor.atFieldEnd() && *cursor != end; cursor.advance()) {
    number = number * 10 + static_cast<std::uint32_t>(codeOf(*cursor) - '0');
  }
  return static_cast<std::int32_t>(number);
}

}  // namespace

bool PgnGame::parseFen(std::string_view tag) {
  const std::size_t quote = tag.find('"');
  FenCursor cursor(tag, quote == std::string_view::npos ? tag.size() + 1 : quote + 1);
  readBoard(cursor, placement);
  if (placement[whiteKingList].size() != 1 || placement[blackKingList].size() != 1) {
    placement.clear();
    return false;
  }

  cursor.skipBlanks();
  sideToMove = *cursor == 'b' ? black : white;
  cursor.advance();

  cursor.skipBlanks();
  whiteKingSide = whiteQueenSide = blackKingSide = blackQueenSide = false;
  for (; !cursor.atFieldEnd(); cursor.advance()) {
    switch (*cursor) {
      case 'K':
        whiteKingSide = true;
        break;
      case 'Q':
        whiteQueenSide = true;
        break;
      case 'k':
        blackKingSide = true;
        break;
      case 'q':
        blackQueenSide = true;
        break;
      default:
        break;
    }
  }

  cursor.skipBlanks();
  if (*cursor == '-') {
    enPassant = noSquare;
    cursor.advance();
  } else {
    enPassant = (codeOf(*cursor) - 'a') + 8 * (codeOf(cursor.peek(1)) - '1');
    cursor.advance(2);
  }

  halfmoveClock = readNumber(cursor, ' ');
  fullmoveNumber = readNumber(cursor, '"');
  return true;
}

}  // namespace quorvane

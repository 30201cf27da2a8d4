#include <algorithm>
#include <cmath>

#include "board/piece_letter.h"
#include "board/square_name.h"
#include "configurations/bit_names.h"
#include "inspect/common/text_columns.h"
#include "inspect/explain/explanation_output.h"

namespace quorvane::inspect {

namespace {

constexpr std::size_t standingOut = 3;  // pieces
constexpr std::size_t patternsOfPiece = 3;

const char* sideName(Side side) {
  return side == white ? "White" : "Black";
}

std::string pieceName(const ExplainedPiece& piece) {
  return std::string(kindName(piece.kind)) + " " + squareName(piece.square);
}

std::string searchedText(const Searched& searched) {
  if (searched.isOver) return "The game is over.\n";
  std::string text = "Behind " + counted(static_cast<std::size_t>(searched.nodes), "node") + ": ";
  if (searched.movesToMate > 0) {
    text += "mates in " + std::to_string(searched.movesToMate);
  } else if (searched.movesToMate < 0) {
    text += "is mated in " + std::to_string(-searched.movesToMate);
  } else {
    text += withSign(searched.pawns) + " pawns";
  }
  text += ", depth " + std::to_string(searched.depth) + ",";
  for (const std::string& move : searched.moves) text += " " + move;
  return wrapped(text, 4);
}

std::string headText(const Origin& origin, const Explanation& explanation,
                     const std::string& howToCalibrate) {
  std::string text = wrapped(printable(origin.fen, 200), 0);
  std::string place;
  if (!origin.white.empty() || !origin.black.empty())
    place = printable(origin.white, 60) + " - " + printable(origin.black, 60);
  if (!origin.move.empty()) place += (place.empty() ? "After " : ", after ") + printable(origin.move, 20);
  if (!place.empty()) text += wrapped(place, 0);
  text += std::string(sideName(explanation.sideToMove)) + " to move: " + withSign(explanation.total());
  if (explanation.expectedScore) text += ", expected score " + asPercent(*explanation.expectedScore);
  text += ", " + withSign(explanation.pawns) + " pawns";
  text += "\nPosition type " + std::to_string(explanation.type) + ", " + typeName(explanation.type);
  if (!explanation.typeHasPatterns) text += "; the network has no patterns for it";
  text += '\n';
  if (explanation.searched) text += searchedText(*explanation.searched);
  return explanation.calibrated ? text : text + wrapped("For expected scores: " + howToCalibrate, 4);
}

// The piece letters of the board, white ones in capitals.
std::vector<std::string> boardLines(const Explanation& explanation) {
  std::vector<std::string> lines;
  for (std::int32_t rank = 7; rank >= 0; --rank)
    lines.push_back(std::to_string(rank + 1) + "  . . . . . . . .");
  lines.emplace_back("   a b c d e f g h");
  for (const ExplainedPiece& piece : explanation.pieces) {
    const auto line = static_cast<std::size_t>(7 - rankOf(piece.square));
    const auto place = 3 + 2 * static_cast<std::size_t>(fileOf(piece.square));
    lines[line][place] = pieceLetter(piece.side, piece.kind);
  }
  return lines;
}

std::vector<const ExplainedPiece*> piecesOf(const Explanation& explanation, Side side) {
  std::vector<const ExplainedPiece*> pieces;
  for (const ExplainedPiece& piece : explanation.pieces) {
    if (piece.side == side) pieces.push_back(&piece);
  }
  std::ranges::stable_sort(pieces, std::greater(), [](const ExplainedPiece* piece) { return piece->kind; });
  return pieces;
}

// Board, White's pieces, Black's pieces, side by side.
std::string piecesText(const Explanation& explanation) {
  const std::vector<std::string> board = boardLines(explanation);
  const std::vector<const ExplainedPiece*> sides[] = {piecesOf(explanation, white),
                                                      piecesOf(explanation, black)};
  const bool compares = explanation.calibrated;
  TextColumns columns(compares ? "llrrlrr" : "llrlr");
  std::vector<std::string> cells{""};
  for (const Side side : {white, black}) {
    cells.insert(cells.end(), {sideName(side), withSign(explanation.sums[side])});
    if (compares) cells.emplace_back("vs mean");
  }
  columns.add(cells);
  const std::size_t count = std::max({board.size(), sides[0].size(), sides[1].size()});
  for (std::size_t line = 0; line < count; ++line) {
    cells = {line < board.size() ? board[line] : ""};
    for (const auto& pieces : sides) {
      const ExplainedPiece* const piece = line < pieces.size() ? pieces[line] : nullptr;
      cells.push_back(piece != nullptr ? pieceName(*piece) : "");
      cells.push_back(piece != nullptr ? withSign(piece->value) : "");
      if (!compares) continue;
      const std::optional<double> difference = piece != nullptr ? piece->aboveMean() : std::nullopt;
      cells.push_back(difference ? withSign(*difference) : "");
    }
    columns.add(cells);
  }
  return columns.str();
}

// A pattern's line, the weight in a column of its own.
std::string patternLine(double weight, const std::string& name) {
  const std::string number = withSign(weight);
  return wrapped(std::string(number.size() < 10 ? 10 - number.size() : 0, ' ') + number + "  " + name, 14);
}

// In hundredths, as they are printed.
double rounded(double number) {
  return std::round(100.0 * number) / 100.0;
}

// The last line is what is left of the value as printed, so that the lines add up.
std::string patternsText(PositionType type, const ExplainedPiece& piece, std::size_t top) {
  std::string text;
  double rest = rounded(piece.value);
  const std::size_t shown = std::min(top, piece.patterns.size());
  for (std::size_t place = 0; place < shown; ++place) {
    const FiringPattern& pattern = piece.patterns[place];
    text += patternLine(pattern.weight, patternName(type, piece.kind, pattern.mask));
    rest -= rounded(pattern.weight);
  }
  const std::size_t more = piece.patterns.size() - shown;
  if (more != 0) text += patternLine(rest, std::to_string(more) + " more");
  return text;
}

std::string detailText(const Explanation& explanation, std::optional<std::size_t> top) {
  std::vector<const ExplainedPiece*> pieces;
  for (const ExplainedPiece& piece : explanation.pieces) pieces.push_back(&piece);
  std::string text = "Patterns of each piece\n";
  if (!top) {
    std::ranges::stable_sort(pieces, std::greater(), [&](const ExplainedPiece* piece) {
      return std::abs(piece->aboveMean().value_or(piece->value));
    });
    pieces.resize(std::min(pieces.size(), standingOut));
    text = explanation.calibrated ? "The pieces furthest from the mean of their kind\n"
                                  : "The pieces that are worth most or least\n";
  }
  for (const ExplainedPiece* const piece : pieces) {
    text += "  " + std::string(sideName(piece->side)) + " " + pieceName(*piece) + "  " +
            withSign(piece->value) + "\n" +
            patternsText(explanation.type, *piece, top.value_or(patternsOfPiece));
  }
  return text;
}

std::string squaresText(const std::vector<Square>& squares) {
  std::string text;
  for (const Square square : squares) text.append(" ").append(squareName(square));
  return text;
}

std::string decidingText(const Explanation& explanation) {
  const char* const mover = sideName(explanation.sideToMove);
  std::string text = std::string("The patterns that decide it, as ") + mover + " sees them\n";
  for (const DecidingPattern& pattern : decidingPatterns(explanation, decidingPatternsTold)) {
    std::string name =
        kindName(pattern.kind) + (": " + patternName(explanation.type, pattern.kind, pattern.mask)) + " (";
    if (!pattern.own.empty()) name += mover + squaresText(pattern.own);
    if (!pattern.own.empty() && !pattern.opposing.empty()) name += ", ";
    if (!pattern.opposing.empty())
      name += sideName(opponent(explanation.sideToMove)) + squaresText(pattern.opposing);
    text += patternLine(pattern.weight, name + ")");
  }
  return text;
}

}  // namespace

std::string explainText(const Origin& origin, const Explanation& explanation, std::optional<std::size_t> top,
                        const std::string& howToCalibrate) {
  std::string text = headText(origin, explanation, howToCalibrate) + "\n" + piecesText(explanation);
  if (!explanation.typeHasPatterns) return text;
  return text + "\n" + detailText(explanation, top) + "\n" + decidingText(explanation);
}

}  // namespace quorvane::inspect

#include "play/protocol/judgement_text.h"

#include <cstdio>

#include "board/piece_letter.h"
#include "board/square_name.h"
#include "configurations/bit_names.h"
#include "files/file_name.h"

namespace quorvane::play {

namespace {

std::string fixed(double number, bool sign) {
  char text[400];
  std::snprintf(text, sizeof text, sign ? "%+.2f" : "%.2f", number);
  return text;
}

std::string piecesText(const evaluator::LearnedNetwork& network, const Position& position,
                       const PositionWords& described, Side side) {
  std::string text = side == white ? "White" : "Black";
  for (std::int32_t kind = kingKind; kind >= pawnKind; --kind) {
    for (const Square square : Squares(position.pieces[side][kind])) {
      const double worth = network.valueOf(described.type, kind, described.words[square]);
      text += "  ";
      text += pieceLetter(side, kind) + squareName(square) + ' ' + fixed(worth, true);
    }
  }
  return text + '\n';
}

}  // namespace

std::string boardText(const Position& position) {
  std::string text;
  for (std::int32_t rank = 7; rank >= 0; --rank) {
    text += static_cast<char>('1' + rank);
    for (std::int32_t file = 0; file < 8; ++file) {
      const Square square = squareAt(rank, file);
      const Side side = (position.ofSide(white) & setOf(square)) != 0 ? white : black;
      text += ' ';
      text += position.kindAt(square) == emptyKind ? '.' : pieceLetter(side, position.kindAt(square));
    }
    text += '\n';
  }
  return text + "  a b c d e f g h\n";
}

std::string judgementText(const Knowledge& knowledge, const Position& position) {
  const PositionWords described = describe(position);
  std::string text = "Type " + std::to_string(described.type) + ", " + typeName(described.type) + ", by " +
                     inOneLine(knowledge.name()) + '\n';
  double value = 0.0;
  const std::optional<double> steepness = knowledge.steepnessOf(described.type);
  if (!knowledge.isMaterial()) {
    for (const Side side : {position.sideToMove, opponent(position.sideToMove)})
      text += piecesText(*knowledge.learned(), position, described, side);
    value = evaluate(position, described, *knowledge.learned());
    text += "Value " + fixed(value, true);
    if (steepness) {
      char k[40];
      std::snprintf(k, sizeof k, "%.4f", *steepness);
      text += std::string(" at k ") + k + ", expected score " +
              fixed(100.0 * expectedScore(*steepness, value), false) + " %";
    }
    text += '\n';
  }
  const std::string side = position.sideToMove == white ? "White" : "Black";
  return text + "Material " + fixed(evaluator::pawnsOf(position, {}, 0.0), true) + "\nPawns " +
         fixed(evaluator::pawnsOf(position, steepness, value), true) + ", " + side + " to move\n";
}

}  // namespace quorvane::play

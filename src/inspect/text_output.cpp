#include "inspect/text_output.h"

#include "inspect/bit_names.h"
#include "inspect/text_columns.h"

namespace quorvane {

namespace {

std::string squareName(Square square) {
  return {static_cast<char>('a' + fileOf(square)), static_cast<char>('1' + rankOf(square))};
}

// White pieces in capitals.
std::string letterOf(const ExplainedPiece& piece) {
  return {(piece.side == white ? "PNBRQK" : "pnbrqk")[piece.kind]};
}

const char* sideName(Side side) {
  return side == white ? "White" : "Black";
}

// "1 bit", "2 bits".
std::string sizeName(std::size_t bits) {
  return std::to_string(bits) + (bits == 1 ? " bit" : " bits");
}

std::string listsText(const std::vector<ListSummary>& lists) {
  std::size_t sizes = 0;
  for (const ListSummary& list : lists) sizes = std::max(sizes, list.countBySize.size());
  TextColumns columns("rlr" + std::string(sizes + 4, 'r'));
  std::vector<std::string> cells{"type", "kind", "patterns"};
  for (std::size_t size = 1; size <= sizes; ++size) cells.push_back(sizeName(size));
  for (const char* weights : {"lowest", "highest", "mean", "deviation"}) cells.emplace_back(weights);
  columns.add(cells);
  for (const ListSummary& list : lists) {
    cells = {std::to_string(list.type), kindName(list.kind), std::to_string(list.list->size())};
    for (std::size_t size = 0; size < sizes; ++size) {
      cells.push_back(std::to_string(size < list.countBySize.size() ? list.countBySize[size] : 0));
    }
    for (const double weight : {list.lowest, list.highest, list.mean, list.deviation}) {
      cells.push_back(twoDigits(weight));
    }
    columns.add(cells);
  }
  return columns.str();
}

std::string boardText(const Explanation& explanation) {
  std::vector<std::string> cells(squareCount, ".");
  for (const ExplainedPiece& piece : explanation.pieces) {
    cells[static_cast<std::size_t>(piece.square)] = letterOf(piece) + " " + twoDigits(piece.value);
  }
  TextColumns columns("rllllllll");
  const auto addRank = [&](const std::string& name, const auto& cellOfFile) {
    std::vector<std::string> line{name};
    for (std::int32_t file = 0; file < 8; ++file) line.push_back(cellOfFile(file));
    columns.add(line);
  };
  for (std::int32_t rank = 7; rank >= 0; --rank) {
    addRank(std::to_string(rank + 1),
            [&](std::int32_t file) { return cells[static_cast<std::size_t>(squareAt(rank, file))]; });
  }
  addRank("", [](std::int32_t file) { return std::string{static_cast<char>('a' + file)}; });
  return columns.str();
}

std::string sideText(const Explanation& explanation, Side side, std::size_t top) {
  TextColumns columns("lrl");
  for (const ExplainedPiece& piece : explanation.pieces) {
    if (piece.side != side) continue;
    const std::string name = std::string(kindName(piece.kind)) + " " + squareName(piece.square);
    columns.add({name, twoDigits(piece.value)});
    for (std::size_t place = 0; place < piece.patterns.size() && place < top; ++place) {
      const FiringPattern& pattern = piece.patterns[place];
      columns.add({"", twoDigits(static_cast<double>(pattern.weight)),
                   patternName(explanation.type, piece.kind, pattern.mask)});
    }
  }
  return std::string(sideName(side)) + "\n" + columns.str() + "\n";
}

std::vector<std::string> measurementCells(const std::string& type, const Measurement& measured,
                                          bool learned) {
  std::vector<std::string> cells{type, std::to_string(measured.samples())};
  const auto count = static_cast<double>(measured.samples());
  const auto addResiduals = [&](const FitSystem::Residuals& residuals) {
    for (const double sum :
         {residuals.squares, residuals.absolutes, 100.0 * static_cast<double>(residuals.hits)}) {
      cells.push_back(sixDigits(sum / count));
    }
  };
  if (measured.samples() == 0) return cells;
  if (learned) {
    addResiduals(measured.network());
  } else {
    cells.insert(cells.end(), 3, "-");
  }
  addResiduals(measured.zeros());
  const bool hasSigns = learned && measured.decided() != 0;
  cells.push_back(hasSigns ? sixDigits(100.0 * static_cast<double>(measured.agreeing()) /
                                       static_cast<double>(measured.decided()))
                           : "-");
  return cells;
}

std::string bandsText(const Measurement& measured) {
  TextColumns columns("rrrrrr");
  columns.add({"band", "samples", "value from", "to", "mean value", "mean target"});
  std::size_t number = 0;
  for (const Band& band : measured.bands()) {
    columns.add({std::to_string(++number), std::to_string(band.samples), twoDigits(band.lowest),
                 twoDigits(band.highest), twoDigits(band.meanValue), twoDigits(band.meanTarget)});
  }
  return columns.str();
}

}  // namespace

std::string showText(const std::vector<ListSummary>& lists, std::size_t top) {
  if (lists.empty()) return "No patterns.\n";
  std::string text = "Patterns and their weights\n\n" + listsText(lists);
  if (top == 0) return text;
  text += "\nStrongest patterns\n\n";
  TextColumns columns("rlr");
  columns.add({"type", "pattern", "weight"});
  for (const PlacedPattern& pattern : strongestPatterns(lists, top)) {
    columns.add({std::to_string(pattern.type),
                 std::string(kindName(pattern.kind)) + ": " +
                     patternName(pattern.type, pattern.kind, pattern.node->mask),
                 twoDigits(static_cast<double>(pattern.node->weight))});
  }
  return text + columns.str();
}

std::string explainText(const Explanation& explanation, std::size_t top) {
  const Side side = explanation.sideToMove;
  std::string text = boardText(explanation) + "\n";
  TextColumns columns("lrl");
  const std::string total =
      explanation.total() < 0.0 ? "for the side to move, which stands worse" : "for the side to move";
  columns.add({sideName(side), twoDigits(explanation.ownSum), "to move"});
  columns.add({sideName(1 - side), twoDigits(explanation.opposingSum)});
  columns.add({"Total", twoDigits(explanation.total()), total});
  text += columns.str() + "\nPosition type " + std::to_string(explanation.type) + ", " +
          typeName(explanation.type) +
          (explanation.typeHasPatterns ? "\n\n" : "; the network has no patterns for it\n\n");
  return text + sideText(explanation, side, top) + sideText(explanation, 1 - side, top);
}

std::string validateText(const Validation& validation) {
  TextColumns columns("rrrrrrrrr");
  columns.add({"", "", "network", "", "", "zeros", "", "", ""});
  columns.add({"type", "samples", "f(w)", "mean error", "hit %", "f(w)", "mean error", "hit %", "sign %"});
  for (PositionType type = 0; type < positionTypeCount; ++type) {
    const Measurement& measured = validation.byType[type];
    if (measured.samples() == 0 && validation.patterns[type] == 0) continue;
    columns.add(measurementCells(std::to_string(type), measured, validation.patterns[type] != 0));
  }
  columns.add(measurementCells("all", validation.all, true));
  std::string text = std::to_string(validation.games) + " games with a result\n\n" + columns.str();
  text +=
      "\nall: the types of which the network has patterns. sign %: how often the value has the sign of the\n"
      "result, in games that were not drawn.\n\n";
  return text + "Predicted value against mean target, a tenth of these samples each\n\n" +
         bandsText(validation.all);
}

}  // namespace quorvane

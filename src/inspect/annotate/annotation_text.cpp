#include "inspect/annotate/annotation.h"
#include "inspect/common/text_columns.h"

namespace quorvane::inspect {

std::vector<std::string> annotationLines(const AnnotationTally& tally) {
  std::vector<std::string> lines{"annotated " + counted(tally.games, "game") + ", " +
                                 counted(tally.moves, "move")};
  if (tally.unknownMoves != 0) {
    lines.push_back(counted(tally.unknownMoves, "move") +
                    " without a value: the network has no patterns for the position type");
  }
  if (tally.withoutValues != 0)
    lines.push_back(counted(tally.withoutValues, "game") + " without a move to value");
  for (const auto& [oddity, left] : tally.left) {
    lines.push_back(counted(left.games, "game") + " left as before: " + wordsOf(oddity).text +
                    (left.games == 1 ? " (game " : " (first in game ") + std::to_string(left.first) +
                    ", ply " + std::to_string(left.verdict.ply) + ", " +
                    printable(left.verdict.token, longestToken) + ")");
  }
  return lines;
}

}  // namespace quorvane::inspect

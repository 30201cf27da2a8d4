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
  for (const auto& [fault, unread] : tally.unread) {
    lines.push_back(counted(unread.games, "game") + " without values behind a move that " + textOf(fault) +
                    (unread.games == 1 ? " (game " : " (first in game ") + std::to_string(unread.first) +
                    ", ply " + std::to_string(unread.ply) + ", " + printable(unread.san, longestToken) + ")");
  }
  return lines;
}

}  // namespace quorvane::inspect

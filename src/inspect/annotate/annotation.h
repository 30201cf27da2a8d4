#ifndef QUORVANE_INSPECT_ANNOTATE_ANNOTATION_H_
#define QUORVANE_INSPECT_ANNOTATE_ANNOTATION_H_

#include <cstddef>
#include <cstdint>
#include <map>
#include <string>
#include <vector>

#include "inspect/common/game_files.h"
#include "inspect/games/game_verdict.h"
#include "inspect/measure/calibration.h"

namespace quorvane::inspect {

// Games that stay as they are for one reason.
struct GamesLeft {
  std::size_t games = 0;
  std::int32_t first = 0;  // the number of the first of them in the file, from 1
  GameVerdict verdict;     // of that one
};

// What came of the games of a file.
struct AnnotationTally {
  std::size_t games = 0;          // that have values now
  std::size_t moves = 0;          // with a value
  std::size_t unknownMoves = 0;   // without one, as the network has no patterns for the type of the position
  std::size_t withoutValues = 0;  // games that have no moves, or only such
  std::map<Oddity, GamesLeft> left;
};

struct Annotation {
  std::string text;
  AnnotationTally tally;
};

// The text of a file of games with the value of the position behind each move, as White sees it, by the
// network `table` and its calibration: in place of the [%eval ...] of the move's comments, or in a comment of
// its own behind the move. Nothing else is changed. A game of which the utility cannot play every move stays
// as it is, and so does a move to a position that has no expected score, but for a [%eval ...] of its
// comments, which is taken out. Throws a Fault for a file that cannot be read or holds no games.
Annotation annotateGames(const std::string& file, const NetworkTable& table, const Calibration& calibration,
                         const ShowProgress& showProgress);

// How many games were annotated, and how many were not and why, each in a line without its end.
std::vector<std::string> annotationLines(const AnnotationTally& tally);

}  // namespace quorvane::inspect

#endif  // QUORVANE_INSPECT_ANNOTATE_ANNOTATION_H_

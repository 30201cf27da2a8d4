#ifndef QUORVANE_INSPECT_ANNOTATE_ANNOTATION_H_
#define QUORVANE_INSPECT_ANNOTATE_ANNOTATION_H_

#include <cstddef>
#include <cstdint>
#include <map>
#include <string>
#include <vector>

#include "inspect/common/game_files.h"
#include "inspect/measure/calibration.h"
#include "inspect/position/look_ahead.h"
#include "inspect/position/san_game.h"

namespace quorvane::inspect {

// Games with a move that cannot be played, for one reason.
struct UnreadGames {
  std::size_t games = 0;
  std::int32_t first = 0;  // the number of the first of them in the file, from 1
  std::size_t ply = 0;     // of the move in that one, from 1
  std::string san;         // the move
};

// What came of the games of a file.
struct AnnotationTally {
  std::size_t games = 0;          // that have values now
  std::size_t moves = 0;          // with a value
  std::size_t unknownMoves = 0;   // without one, as the network has no patterns for the type of the position
  std::size_t withoutValues = 0;  // games that have no moves, or only such
  std::map<SanFault, UnreadGames> unread;
};

struct Annotation {
  std::string text;
  AnnotationTally tally;
};

// What gives the values.
struct AnnotatingNetwork {
  const NetworkTable& table;
  const Calibration& calibration;
  // Of one line, without quotes and brackets; it begins with the name of the program and a blank.
  std::string signature;
  LookAhead* lookAhead;  // if values are wanted behind a search, else null
};

// The text of a file of games with the value of the position behind each move, as White sees it: in place of
// the [%eval ...] of the move's comment, or in front of all commands in that comment, or in a comment of its
// own behind the move; a comment behind a semicolon gets braces for it. Moves are read by the rules of chess,
// up to one that cannot be played; where there is no value, behind that, in variations, and behind a move to
// a position that has no expected score, every [%eval ...] is taken out. An Annotator tag of games with
// values gets the signature. Nothing else is changed. Throws a Fault for a file that cannot be read or holds
// no games.
Annotation annotateGames(const std::string& file, const AnnotatingNetwork& network,
                         const ShowProgress& showProgress);

// How many games were annotated, and how many not to their end and why, each in a line without its end.
std::vector<std::string> annotationLines(const AnnotationTally& tally);

}  // namespace quorvane::inspect

#endif  // QUORVANE_INSPECT_ANNOTATE_ANNOTATION_H_

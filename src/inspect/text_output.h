#ifndef QUORVANE_INSPECT_TEXT_OUTPUT_H_
#define QUORVANE_INSPECT_TEXT_OUTPUT_H_

#include <optional>
#include <string>
#include <vector>

#include "inspect/annotate/annotation.h"
#include "inspect/explain/explanation.h"
#include "inspect/games/game_report.h"
#include "inspect/measure/calibration.h"
#include "inspect/measure/comparison.h"
#include "inspect/measure/judgement.h"
#include "inspect/measure/validation.h"
#include "inspect/patterns/summary.h"
#include "inspect/position/position.h"

namespace quorvane::inspect {

// What the commands print for people, no wider than 80 characters where the names of files allow it. Patterns: at most
// `top`.
std::string showText(const std::vector<ListSummary>& lists, std::size_t top);

// Without `top`, the three patterns that matter most of the three pieces that stand out; with it, so many patterns of
// every piece. `calibration` may be null; `howToCalibrate` is the command that makes one.
std::string explainText(const Origin& origin, const Explanation& explanation, const Calibration* calibration,
                        std::optional<std::size_t> top, const std::string& howToCalibrate);

// `curvesFrom` says where the curves come from.
std::string validateText(const Validation& validation, const Judgement& judgement,
                         const std::string& curvesFrom);

std::string compareText(const Contender& first, const Contender& second, const Comparison& comparison);

std::string gamesText(const std::vector<FileReport>& files);
// One line: how many games counted, and why the others did not.
std::string tallyText(const GameTally& tally);

// How many games were annotated, and how many were not and why, each in a line without its end.
std::vector<std::string> annotationLines(const AnnotationTally& tally);

}  // namespace quorvane::inspect

#endif  // QUORVANE_INSPECT_TEXT_OUTPUT_H_

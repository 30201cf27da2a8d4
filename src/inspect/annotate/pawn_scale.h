#ifndef QUORVANE_INSPECT_ANNOTATE_PAWN_SCALE_H_
#define QUORVANE_INSPECT_ANNOTATE_PAWN_SCALE_H_

namespace quorvane::inspect {

// The greatest number of pawns: as good as won.
inline constexpr double mostPawns = 10.0;

// The pawns of which lichess expects this score, from 0 to 1; 0 for 0.5, at most mostPawns either way.
double pawnsOfScore(double expectedScore);

}  // namespace quorvane::inspect

#endif  // QUORVANE_INSPECT_ANNOTATE_PAWN_SCALE_H_

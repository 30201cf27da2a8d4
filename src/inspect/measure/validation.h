#ifndef QUORVANE_INSPECT_MEASURE_VALIDATION_H_
#define QUORVANE_INSPECT_MEASURE_VALIDATION_H_

#include <cstdint>
#include <span>
#include <string>
#include <vector>

#include "board/table.h"
#include "inspect/common/mean.h"
#include "inspect/games/game_tally.h"
#include "network/network_table.h"

namespace quorvane::inspect {

// What the network says of one sample, and what became of it; all as the side to move sees it.
struct Prediction {
  double value;
  std::int32_t target;
  std::int32_t outcome;   // of the game: 1 won, 0 drawn, -1 lost
  std::int32_t material;  // own minus opposing, in thousandths of a pawn
  std::uint32_t game;     // samples of one game have one number here, different games different ones

  // 1 won, 0.5 drawn, 0 lost.
  double score() const { return (outcome + 1) / 2.0; }
};
using Predictions = std::vector<Prediction>;

// A tenth of the samples, by predicted value.
struct Band {
  std::size_t samples;
  double lowest;  // predicted value
  double highest;
  double meanValue;
  double meanTarget;
  // Shares of the samples whose side to move won, drew and lost its game, together 1.
  double won;
  double drawn;
  double lost;
  double meanScore() const { return won + drawn / 2.0; }
};

// Ten bands of as equal a number of samples as can be, the lowest values first; fewer than ten samples give
// as many bands.
std::vector<Band> bandsOf(Predictions predictions);

// What pieces are worth to their own side, by kind and square, seen from that side: a1 is its own left
// corner.
using PieceWorth = Table<Table<Mean, squareCount>, pieceKindCount>;

struct Validation {
  std::vector<std::string> files;
  std::size_t games = 0;  // that have a result
  GameTally tally;
  Table<Predictions, positionTypeCount> byType;
  Table<std::size_t, positionTypeCount> patterns{};  // of the row of the type
  Table<PieceWorth, positionTypeCount> worth{};      // of all pieces of the samples of the type

  // Over the types whose rows hold patterns.
  Predictions all() const;
};

// Measures networks, at least one, on the samples that the utility would learn from these files, at least
// one; in the order of the networks. Throws a Fault for a file without a game that has a result, and if there
// is no sample at all.
std::vector<Validation> validateOn(std::span<const NetworkTable> tables,
                                   const std::vector<std::string>& files, const ShowProgress& showProgress);
Validation validateOn(const NetworkTable& table, const std::vector<std::string>& files,
                      const ShowProgress& showProgress);

}  // namespace quorvane::inspect

#endif  // QUORVANE_INSPECT_MEASURE_VALIDATION_H_

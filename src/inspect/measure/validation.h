#ifndef QUORVANE_INSPECT_MEASURE_VALIDATION_H_
#define QUORVANE_INSPECT_MEASURE_VALIDATION_H_

#include <cstdint>
#include <span>
#include <string>
#include <vector>

#include "board/table.h"
#include "board/types.h"
#include "inspect/common/mean.h"
#include "inspect/games/game_report.h"
#include "learning/fit/residuals.h"
#include "network/network_table.h"

namespace quorvane::inspect {

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

// What the network says of one sample, and what became of it; all as the side to move sees it.
struct Prediction {
  double value;
  std::int32_t target;
  std::int32_t outcome;   // of the game: 1 won, 0 drawn, -1 lost
  std::int32_t material;  // own minus opposing, in thousandths of a pawn
  std::uint32_t game;     // samples of one game have one number here, different games different ones
};

// 1 won, 0.5 drawn, 0 lost.
inline double scoreOf(const Prediction& prediction) {
  return (prediction.outcome + 1) / 2.0;
}

// How well values meet the targets of samples, both as the side to move sees them.
class Measurement {
 public:
  void add(const Prediction& prediction);
  void add(const Measurement& other);

  std::size_t samples() const { return all.size(); }
  const std::vector<Prediction>& predictions() const { return all; }
  // The fit's own sums, of the network and of a network of zeros.
  const Residuals& network() const { return residuals; }
  const Residuals& zeros() const { return residualsOfZeros; }
  // Samples of games that were not drawn, and those among them whose value has the sign of the outcome.
  std::size_t decided() const { return decidedSamples; }
  std::size_t agreeing() const { return agreeingSamples; }
  // Ten bands of as equal a number of samples as can be, the lowest values first; fewer than ten samples give
  // as many bands.
  std::vector<Band> bands() const;

 private:
  std::vector<Prediction> all;
  Residuals residuals;
  Residuals residualsOfZeros;
  std::size_t decidedSamples = 0;
  std::size_t agreeingSamples = 0;
};

// What pieces are worth to their own side, by kind and square, seen from that side: a1 is its own left corner.
using PieceWorth = Table<Table<Mean, squareCount>, pieceKindCount>;

struct Validation {
  std::vector<std::string> files;
  std::size_t games = 0;  // that have a result
  GameTally tally;
  Table<Measurement, positionTypeCount> byType;
  Table<std::size_t, positionTypeCount> patterns{};  // of the row of the type
  Measurement all;                                   // over the types whose rows hold patterns
  Table<PieceWorth, positionTypeCount> worth{};      // of all pieces of the samples of the type
};

// Measures networks on the samples that the utility would learn from these files, in the order of the networks. Throws
// a Fault for a file without a game that has a result, and if there is no sample at all.
std::vector<Validation> validateOn(std::span<const NetworkTable> tables,
                                   const std::vector<std::string>& files, const ShowProgress& showProgress);
Validation validateOn(const NetworkTable& table, const std::vector<std::string>& files,
                      const ShowProgress& showProgress);

}  // namespace quorvane::inspect

#endif  // QUORVANE_INSPECT_MEASURE_VALIDATION_H_

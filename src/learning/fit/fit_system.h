#ifndef QUORVANE_LEARNING_FIT_FIT_SYSTEM_H_
#define QUORVANE_LEARNING_FIT_FIT_SYSTEM_H_

#include <cstdint>
#include <optional>
#include <span>
#include <vector>

#include "learning/fit/cache_model.h"
#include "learning/fit/firing_matrix.h"
#include "learning/fit/residuals.h"
#include "learning/fit/sample_rows.h"
#include "learning/fit/word_value.h"
#include "learning/sample_set.h"
#include "network/network_table.h"

namespace quorvane {

class ConfigurationTable;

// The least-squares system of one position type, laid out for the steps of the fit.
//
// With c(i, s) the net count of node i on sample s, a step needs v(s) = sum_i c(i, s) w(i) for every sample,
// g(i) = sum_s 2 r(s) c(i, s) for every node, and F(s) = sum_i c(i, s) p(i) d(i) for every sample. Words
// repeat: what a step needs of the nodes, it needs once for each different configuration, a fraction of the
// pieces in the samples. So the matrix c stands here as the product of two sparse ones, samples by
// configurations and configurations by nodes, and each of the three sums goes through a table of the
// configurations. Three words mean one thing each in all of this folder:
//
//   number   of a configuration: 0, 1, 2, ... in the order in which they first come, until all are known
//   place    where a configuration stands in those tables from then on, frequent ones first
//   row      of the first matrix: the pieces of a sample. Samples with equal pieces share one
//
// The values v(s) are those of Network::evaluate to the last bit. Whether a word is found in the evaluation
// caches does not depend on the weights, so it is worked out once: a step rounds what a cache would have
// rounded.
//
// The calls of a fit, in this order:
//
//   accumulateCounts                            for p(i)
//   updateValues                                behind every change of weights, the first clearing included
//   accumulateGradient, set d(i), lineSearch    in every step, then change the weights along d(i)
//   residuals                                   at any time behind updateValues
//
// Refers to the nodes of the lists, which must neither move nor change their masks while the system exists.
// The set is needed no more once the system stands.
class FitSystem {
 public:
  FitSystem(const SampleSet& set, NetworkRow& lists);

  std::size_t sampleCount() const { return targets.size(); }
  std::size_t rowCount() const { return rows.size(); }
  std::size_t configurationCount() const { return configurations.size(); }

  const NetworkRow& lists() const { return nodeLists; }
  // The nodes of all lists, kind after kind.
  const std::vector<PatternNode*>& nodes() const { return allNodes; }

  // sum_s c(i, s)^2 for every node.
  std::vector<double> accumulateCounts() const;

  // Takes over the weights of the nodes.
  void updateValues();

  // What the evaluation caches hold when a pass over all samples begins. They were filled if the pass before
  // it was at the same weights.
  enum class Caches { cleared, filledByPassBefore };
  // r(s) = t(s) - v(s) over all samples.
  Residuals residuals(Caches caches);
  // The same with the caches cleared, and adds g(i) to `direction` of every node.
  Residuals accumulateGradient();

  // The exact minimum along the direction p(i) d(i) of the nodes: alpha = sum_s F(s) r(s) / sum_s F(s)^2, 0.0
  // if the divisor is 0. Its r(s) are those of the values without any cache, as accumulateGradient has found
  // them.
  double lineSearch();

 private:
  // The configurations of one kind.
  struct Kind {
    const NodeList* list;
    std::size_t firstNode;  // of the list, in allNodes
    std::vector<PlacedWord> words;
    std::optional<FiringMatrix> matrix;
  };

  void storeSamples(const SampleSet& set, ConfigurationTable& numbered);
  void placeConfigurations(const ConfigurationTable& numbered);
  void groupSamples(const std::vector<std::uint32_t>& missesOfSample,
                    const std::vector<CacheModel::LookUp>& foundAgain);

  // A pass over all samples, whose pieces are missed by the caches as `missed` tells, in the order of
  // `samples`. Calls visit(row, v, sum) for every row: its v(s) unrounded, and the sum of its samples'
  // residuals.
  template <typename Visit>
  Residuals findResiduals(std::span<const std::uint32_t> missed, Visit visit);
  // Those of the samples from `first` to `end`, of one row; gives their sum.
  double findFurtherResiduals(const SampleRows::View& row, std::span<const std::uint32_t> missed,
                              std::size_t first, std::size_t end);
  // Stores the residual of a sample of that value, and gives it.
  double store(std::uint32_t sample, double value);
  // F(s) for every row.
  void directionTerms();

  const NetworkRow& nodeLists;
  std::vector<PatternNode*> allNodes;
  Table<Kind, pieceKindCount> kinds;

  // By place; in the tables of the steps one more follows, which is that of no word.
  std::vector<PieceConfiguration> configurations;
  std::vector<double> frequencies;     // among all pieces of all samples
  std::vector<WordValue> values;       // the weights of its firing nodes summed up
  std::vector<double> gradientShares;  // 2 r(s) summed up over its pieces, opposing ones negative
  std::vector<double> slopeShares;     // p(i) d(i) of its firing nodes summed up

  // v(s) of a row along a step: value + alpha * slope, without any rounding.
  struct Line {
    double value;
    double slope;  // F(s)
  };
  // By row.
  SampleRows rows;
  std::vector<std::uint32_t> repetitions;  // how many samples share it
  std::vector<Line> lines;

  // The samples of each row, row after row; and which of its pieces a pass that begins with cleared caches
  // misses, bit 0 being the first own one.
  std::vector<std::uint32_t> samples;
  std::vector<std::uint32_t> misses;
  // What a pass that begins with filled caches finds and one that begins with cleared ones misses.
  struct FoundAgain {
    std::uint32_t index;  // of the sample, in `samples`
    std::uint32_t piece;
  };
  std::vector<FoundAgain> foundInFilledCaches;

  // By sample.
  std::vector<std::uint32_t> rowOfSample;
  std::vector<float> targets;
  std::vector<double> residualOfSample;  // r(s) of the last pass
};

}  // namespace quorvane

#endif  // QUORVANE_LEARNING_FIT_FIT_SYSTEM_H_

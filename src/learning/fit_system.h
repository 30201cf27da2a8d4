#ifndef QUORVANE_LEARNING_FIT_SYSTEM_H_
#define QUORVANE_LEARNING_FIT_SYSTEM_H_

#include <cmath>
#include <cstdint>
#include <optional>
#include <vector>

#include "learning/firing_matrix.h"
#include "learning/sample_set.h"
#include "learning/squared_counts.h"
#include "network/network_table.h"

namespace quorvane {

// The least-squares system of one position type, laid out for the steps of the fit.
//
// With c(i, s) the net count of node i on sample s, a step needs v(s) = sum_i c(i, s) w(i) for every sample,
// g(i) = sum_s 2 r(s) c(i, s) for every node, and F(s) = sum_i c(i, s) p(i) d(i) for every sample. Words
// repeat: what a step needs of the nodes, it needs once for each different configuration, a fraction of the
// pieces in the samples. So the matrix c stands here as the product of two sparse ones, samples by
// configurations and configurations by nodes, and each of the three sums goes through a table of the
// configurations.
//
// The values v(s) are those of Network::evaluate to the last bit. Whether a word is found in the evaluation
// caches does not depend on the weights, so it is worked out once: a step rounds what a cache would have
// rounded.
//
// Refers to the set and to the nodes of the row, which must neither move nor change their masks while the
// system exists.
class FitSystem {
 public:
  FitSystem(const SampleSet& set, NetworkRow& row);

  std::size_t sampleCount() const { return targets.size(); }

  // The nodes of all lists of the row, kind after kind.
  const std::vector<PatternNode*>& nodes() const { return allNodes; }

  // sum_s c(i, s)^2 for every node.
  std::vector<double> squaredCounts() const { return squaredNetCounts(samples, row); }

  // Takes over the weights of the nodes. Must follow every change of them.
  void updateValues();

  struct Residuals {
    double squares = 0.0;    // sum of r(s)^2
    double absolutes = 0.0;  // sum of |r(s)|
    std::size_t hits = 0;    // samples with |r(s)| below 1.0

    void add(double residual) {
      squares += residual * residual;
      absolutes += std::abs(residual);
      if (std::abs(residual) < 1.0) ++hits;
    }
  };
  // What the evaluation caches hold when a pass over all samples begins.
  enum class Caches { cleared, filledByPassBefore };
  // r(s) = t(s) - v(s) over all samples.
  Residuals residuals(Caches caches) const;
  // The same with the caches cleared, and adds g(i) to `direction` of every node.
  Residuals residualsAndGradient();

  // The exact minimum along the direction p(i) d(i) of the nodes: alpha = sum_s F(s) r(s) / sum_s F(s)^2, 0.0
  // if the divisor is 0. Its r(s) are those of the values without any cache, taken when residualsAndGradient
  // ran last.
  double lineSearch();

 private:
  // The configurations of one kind.
  struct Kind {
    const NodeList* list;
    std::size_t firstNode;  // of the list, in allNodes
    std::vector<ConfigurationWord> words;
    std::vector<std::uint32_t> places;  // of the words, in `values` and `terms`
    std::optional<FiringMatrix> matrix;
  };

  // A piece of a sample: twice the place of its configuration, plus 1 if a pass that begins with cleared
  // caches misses it there, which makes an index of `values`. The top bit tells whether the pass after that
  // one misses it.
  using Reference = std::uint32_t;
  static constexpr Reference missesClearedCache = 1;
  static constexpr Reference missesFilledCache = Reference{1} << 31;

  static std::size_t valueIndex(Reference reference) { return reference & ~missesFilledCache; }
  static std::size_t unroundedIndex(Reference reference) {
    return valueIndex(reference) | missesClearedCache;
  }
  static std::size_t termIndex(Reference reference) { return valueIndex(reference) >> 1; }

  class CacheModel;

  void storeSamples(const std::vector<std::uint32_t>& places);
  // Marks the references that miss in a pass over all samples, and takes the caches along to its end.
  void markMisses(CacheModel& caches, Reference mark);

  const SampleSet& samples;
  const NetworkRow& row;
  std::vector<PatternNode*> allNodes;

  Table<Kind, pieceKindCount> kinds;
  // By place: the most frequent configurations come first, which keeps what is used most close together.
  std::vector<double>
      values;  // two of each: the weights of its firing nodes summed up, rounded to 32 bits, and not
  std::vector<double> terms;  // what a pass collects or hands out: a share of the gradient, or a slope

  std::vector<Reference> references;  // of all samples: own pieces, then opposing ones
  std::vector<std::uint8_t> ownCounts;
  std::vector<std::uint8_t> opposingCounts;
  std::vector<double> targets;
  std::vector<double> lineResiduals;
};

}  // namespace quorvane

#endif  // QUORVANE_LEARNING_FIT_SYSTEM_H_

#ifndef QUORVANE_TESTS_LEARNING_FIT_PLAIN_FIT_H_
#define QUORVANE_TESTS_LEARNING_FIT_PLAIN_FIT_H_

#include <vector>

#include "network/network.h"

namespace quorvane {

// The fit as its formulas read, node by node and sample by sample: the yardstick of the fast one. Works on
// the row that the network has in use, through the caches of Network::evaluate.
class PlainFit {
 public:
  PlainFit(std::vector<Sample> allSamples, Network& model);

  // f(w) at the weights on entry of each step, the first step of all being that along the preconditioned
  // gradient.
  std::vector<double> fit();

  // Each starts with the caches as they are.
  double objective();
  float hitPercentage();

 private:
  double buildPreconditioner();
  double conjugateStep();
  double lineSearch();
  double accumulateCounts(const Sample& sample);
  void accumulateGradient(const Sample& sample, double amount);
  double directionTerms(const Sample& sample, double& slope);
  template <typename Visit>
  void forEachNode(Visit visit);
  template <typename Fire>
  void forEachFiring(const std::vector<PieceConfiguration>& list, Fire fire);

  std::vector<Sample> samples;
  Network& network;
  double previousNorm = 1.0;
};

}  // namespace quorvane

#endif  // QUORVANE_TESTS_LEARNING_FIT_PLAIN_FIT_H_

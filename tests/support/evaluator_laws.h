#ifndef QUORVANE_TESTS_SUPPORT_EVALUATOR_LAWS_H_
#define QUORVANE_TESTS_SUPPORT_EVALUATOR_LAWS_H_

#include "network/network.h"
#include "quorvane/evaluator.h"

namespace quorvane {

// Holds the library for evaluating to the utility's own board, words and weights. Keeps a network of random
// patterns, of all types and kinds, in the network table and in a file of the current folder that the library
// opens.
class EvaluatorLaws : public Network {
 public:
  EvaluatorLaws();
  ~EvaluatorLaws();
  EvaluatorLaws(const EvaluatorLaws&) = delete;
  EvaluatorLaws& operator=(const EvaluatorLaws&) = delete;

  // The position on the board, as the library takes it.
  static quorvane_position positionOnBoard();

  // Are words, type and values those of the board? A law that is broken is told in words; nullptr tells that
  // none is.
  const char* broken();

  const quorvane_network* opened() const { return network; }
  quorvane_cache* openedCache() const { return cache; }

 private:
  quorvane_network* network;
  quorvane_cache* cache;
};

// The words of a position, by square, by loops over files and ranks without sets or tables: the yardstick of
// what is fast.
Table<ConfigurationWord, squareCount> plainWords(const quorvane_position& position);

}  // namespace quorvane

#endif  // QUORVANE_TESTS_SUPPORT_EVALUATOR_LAWS_H_

#ifndef QUORVANE_LEARNING_LEARNER_H_
#define QUORVANE_LEARNING_LEARNER_H_

#include <cstdint>

#include "board/board.h"
#include "board/table.h"
#include "learning/sample_set.h"
#include "network/network.h"
#include "pgn/pgn_database.h"

namespace quorvane {

// The top object of a run: turns games into samples, samples into patterns, and patterns into weights, in
// this order. Owns the samples and the network; its destructor ends the board. Every phase prints its
// progress on standard output.
class Learner : public Board {
 public:
  // Tries to read network.dat; a message about that is printed here.
  Learner();
  ~Learner();
  Learner(const Learner&) = delete;
  Learner& operator=(const Learner&) = delete;

  // Puts a start position on the board: pieces as `placement` has them, with ids in its order, none of them
  // moved, `side` to move. At most 16 pieces a side, one king each, no two on one square, no pawn on its last
  // rank.
  static void setupPosition(const Placement& placement, Side side);

  // Replaces the contents of all sets with the samples of the database's games.
  void collectSamples(PgnDatabase& database);
  // Replaces the patterns of all learned types by those that are frequent in their sets.
  void searchAllPatterns();
  // Fits the weights of all learned types, and saves the network after each.
  void fitAllWeights();

 protected:
  // Replays one game and stores its quiet positions; `result` is the game's, not noResult.
  void collectGame(PgnGame& game, std::int32_t result);
  // Stores the position on the board in `currentSet`. `side` is the side to move, `target` already as it sees
  // it.
  void addSample(std::int32_t target, Side side);

  // Of the type in use, with patterns of up to depth + 1 bits.
  void searchPatterns(std::int32_t depth);
  // Appends `mask` and the patterns that add bits from `nextBit` on to it, as far as they are frequent, to
  // the list of `kind`; gives how many it has appended.
  std::int32_t searchNode(PieceKind kind, ConfigurationWord mask, std::int32_t nextBit, std::int32_t depth);
  // Do at most `tries` drawn samples show `mask` often enough, one side against the other, to reach
  // `threshold`?
  bool isFrequent(PieceKind kind, ConfigurationWord mask, std::int32_t threshold, std::int32_t tries) const;

  // Of the type in use.
  void fitWeights();

  Table<SampleSet, positionTypeCount> sampleSets;
  SampleSet* currentSet = nullptr;
  Network network;
};

}  // namespace quorvane

#endif  // QUORVANE_LEARNING_LEARNER_H_

#ifndef QUORVANE_LEARNING_LEARNER_H_
#define QUORVANE_LEARNING_LEARNER_H_

#include <cstdint>

#include "board/board.h"
#include "board/table.h"
#include "learning/sample_set.h"
#include "network/network.h"
#include "pgn/pgn_database.h"

namespace quorvane {

class DrawnPieces;
class FitSystem;

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
  // Extends a pattern by `bit`: if that is frequent among the pieces on which the pattern fires, appends it
  // to the list of `kind`, and behind it what is frequent of its own extensions by higher bits, `depth`
  // levels down. Gives how many nodes it has appended.
  std::int32_t searchNode(PieceKind kind, const DrawnPieces& parentPieces, ConfigurationWord parentMask,
                          std::int32_t bit, std::int32_t depth);

  // Of the type in use, whose system it works on.
  void fitWeights(FitSystem& system);

  Table<SampleSet, positionTypeCount> sampleSets;
  SampleSet* currentSet = nullptr;
  Network network;
};

}  // namespace quorvane

#endif  // QUORVANE_LEARNING_LEARNER_H_

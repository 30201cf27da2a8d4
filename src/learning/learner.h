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
class FitProgress;
class FitSystem;

// The top object of a run: turns games into samples, samples into patterns, and patterns into weights, in
// this order. Owns the samples and the network; its destructor ends the board. Every phase prints its
// progress on standard output, and has a folder of its own beside this file: collect, search and fit.
class Learner : public Board {
 public:
  // Tries to read network.dat; a message about that is printed here.
  Learner();
  ~Learner();
  Learner(const Learner&) = delete;
  Learner& operator=(const Learner&) = delete;

  // Replaces the contents of all sets with the samples of the database's games.
  void collectSamples(PgnDatabase& database);
  // Replaces the patterns of all learned types by those that are frequent in their sets.
  void searchAllPatterns();
  // Has any learned type a pattern? If not, the network would be empty of them.
  static bool foundPatterns();
  // Fits the weights of all learned types, and saves the network after each; gives what became of the last
  // save. The samples are gone then.
  Saved fitAllWeights();
  // The same, with somebody else to tell how it goes.
  Saved fitAllWeights(FitProgress& progress);

 protected:
  // Takes the type for the one in use: its set as `currentSet`, its row in the network, with clear caches.
  void use(PositionType type);

  // Replays one game and stores its quiet positions; `result` is the game's, not noResult.
  void collectGame(PgnGame& game, std::int32_t result);
  // Stores the position on the board in `currentSet`. `side` is the side to move, `target` already as it sees
  // it.
  void addSample(std::int32_t target, Side side);

  // Levels below a root of the pattern trees: patterns have up to three bits.
  static constexpr std::int32_t searchDepth = 2;
  // Of the type in use, with patterns of up to depth + 1 bits.
  void searchPatterns(std::int32_t depth);
  // Extends a pattern by `bit`: if that is frequent among the pieces on which the pattern fires, appends it
  // to the list of `kind`, and behind it what is frequent of its own extensions by higher bits, `depth`
  // levels down. Gives how many nodes it has appended. REQUIRES: the bit is above all of the pattern.
  std::int32_t searchNode(PieceKind kind, const DrawnPieces& parentPieces, ConfigurationWord parentMask,
                          std::int32_t bit, std::int32_t depth);

  // Of the type in use, whose system it works on.
  Saved fitWeights(FitSystem& system, FitProgress& progress);

  Table<SampleSet, positionTypeCount> sampleSets;
  SampleSet* currentSet = nullptr;
  Network network;
};

}  // namespace quorvane

#endif  // QUORVANE_LEARNING_LEARNER_H_

#ifndef QUORVANE_NETWORK_NETWORK_H_
#define QUORVANE_NETWORK_NETWORK_H_

#include <cstdint>
#include <string>

#include "board/table.h"
#include "configurations/configuration_pass.h"
#include "files/replace_file.h"
#include "network/eval_cache.h"
#include "network/network_table.h"
#include "network/sample.h"

namespace quorvane {

class FitSystem;
struct Residuals;

// The model at work: one row of the network table, and caches of what its words are worth. A piece is worth
// the sum of the weights of all patterns contained in its word; a position the sum over the pieces of the
// side to move minus the sum over the others.
class Network : public ConfigurationPass {
 public:
  static constexpr PositionType classifyBoard = -1;

  // Reads network.dat, the first time in the process only.
  Network();

  // Works on the network table as it stands; reads nothing.
  struct TableAsItStands {};
  explicit Network(TableAsItStands);

  // Classifies the position on the board, or takes `requested`, 0 to 13, as it is. Sets positionType,
  // pawnEnding and the row in use, and clears the caches if told to. Gives the type.
  PositionType classifyPosition(PositionType requested, bool clear);

  // The value of a sample under the row in use, through the caches. Added up in the order of the sample: a
  // word's own sum rounded to 32 bits where it comes out of a cache, unrounded where it goes in.
  double evaluate(const Sample& sample);

  void clearCaches();

  // Of the row in use.
  void clearWeights();
  NetworkRow& row() { return *currentLists; }
  void clearNodeList(PieceKind kind);
  // Gives the index of the new node, all of whose fields are zero.
  std::int32_t appendNode(PieceKind kind);
  // REQUIRES: the list of that kind has such a node.
  PatternNode& nodeAt(PieceKind kind, std::int32_t index);

  // Read and write the whole network table, in stored_network.cpp; network_file.h has the format,
  // replace_file.h what a save does to files and gives. Report on standard output.
  static void loadNetwork();
  static Saved saveNetwork();
  // The file that they read and write, in UTF-8 on Windows: network.dat, unless told before the first
  // Network.
  static void useFile(const std::string& name) { fileInUse = name; }

  // The steps of the fit; learning/fit/conjugate_gradients.cpp defines them. They give the residuals at the
  // weights that they found, and change the weights; with reportOnly nothing changes, and the caches are
  // those that hitPercentage, called before it, has filled. The first leaves the preconditioner in the nodes
  // and takes the first step. REQUIRES: the system is that of the row in use.
  Residuals buildPreconditioner(FitSystem& system);
  Residuals conjugateStep(FitSystem& system, bool reportOnly);
  // Percentage of samples whose value is less than 1.0 away from the target; 100 for an empty set.
  static float hitPercentage(FitSystem& system);

 private:
  double evaluateList(const std::vector<PieceConfiguration>& list, Table<EvalCache, pieceKindCount>& caches,
                      double sign, double value) const;

  Table<EvalCache, pieceKindCount> ownCaches;
  Table<EvalCache, pieceKindCount> opposingCaches;  // hold negative values
  NetworkRow* currentLists;
  double previousNorm = 1.0;

  static bool networkLoaded;
  static std::string fileInUse;
};

}  // namespace quorvane

#endif  // QUORVANE_NETWORK_NETWORK_H_

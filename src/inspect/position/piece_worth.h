#ifndef QUORVANE_INSPECT_POSITION_PIECE_WORTH_H_
#define QUORVANE_INSPECT_POSITION_PIECE_WORTH_H_

#include "board/table.h"
#include "board/types.h"
#include "network/eval_cache.h"

namespace quorvane::inspect {

// What pieces are worth to their own side by the network table, which must not change meanwhile. Remembers what it has
// worked out.
class PieceWorths {
 public:
  // The sum of the weights of all patterns that fire on the word, rounded to 32 bits as the caches of the evaluation
  // do.
  double of(PositionType type, PieceKind kind, ConfigurationWord word);

 private:
  Table<Table<EvalCache, pieceKindCount>, positionTypeCount> caches;
};

}  // namespace quorvane::inspect

#endif  // QUORVANE_INSPECT_POSITION_PIECE_WORTH_H_

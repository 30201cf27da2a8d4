#ifndef QUORVANE_NETWORK_NETWORK_TABLE_H_
#define QUORVANE_NETWORK_NETWORK_TABLE_H_

#include "board/table.h"
#include "board/types.h"
#include "network/pattern_node.h"

namespace quorvane {

// The lists of one position type, by PieceKind.
using NetworkRow = Table<NodeList, pieceKindCount>;

// The model: rows by PositionType. One per process; it exists before any Network and outlives all of them.
using NetworkTable = Table<NetworkRow, positionTypeCount>;
extern NetworkTable networkTable;

}  // namespace quorvane

#endif  // QUORVANE_NETWORK_NETWORK_TABLE_H_

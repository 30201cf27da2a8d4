#ifndef QUORVANE_NETWORK_NETWORK_FILE_H_
#define QUORVANE_NETWORK_NETWORK_FILE_H_

#include <cstdint>
#include <istream>
#include <string>

#include "network/network_table.h"

namespace quorvane {

// network.dat: 32-bit little-endian values without lengths or padding; docs/network-file.md reads one byte by
// byte.
//
//   version
//   for each PieceKind k:           0, selectKind, k
//     for each PositionType t:      0, selectType, t
//       for each node in preorder:  mask, childBits, weight, skip
//   0, endOfFile
//
// The 0 in front of a control record cannot be a mask: no node has none.
inline constexpr char networkFileName[] = "network.dat";
inline constexpr std::uint32_t networkFileVersion = 1;

// The bytes of the whole file. REQUIRES: no mask is 0.
std::string encodeNetwork(const NetworkTable& table);

// What a file has that no written one has.
struct NetworkFlaw {
  enum Kind {
    none,
    noVersion,     // shorter than that
    wrongVersion,  // nothing behind it was read
    cutShort,      // within a record, or before the end record
    unknownCode,
    unknownKind,
    unknownType
  };
  Kind kind = none;
  // Of noVersion and cutShort the size of the file in bytes, otherwise the value that should be another.
  std::uint64_t value = 0;
};

// Reads up to the end record and appends each node to its list of `table`, whatever the order of the records:
// driven by them alone. Takes all that it can use: unknown codes are passed over, nodes of a kind or type
// that does not exist are dropped, a record that is cut short ends the reading. Only the four stored fields
// of a node are set; the others are 0. Gives the first flaw.
NetworkFlaw decodeNetwork(std::istream& file, NetworkTable& table);

}  // namespace quorvane

#endif  // QUORVANE_NETWORK_NETWORK_FILE_H_

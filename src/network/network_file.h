#ifndef QUORVANE_NETWORK_NETWORK_FILE_H_
#define QUORVANE_NETWORK_NETWORK_FILE_H_

#include <cstdint>

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
inline constexpr std::uint32_t controlRecord = 0;
enum ControlCode : std::uint32_t { selectKind = 0, selectType = 1, endOfFile = 2 };

}  // namespace quorvane

#endif  // QUORVANE_NETWORK_NETWORK_FILE_H_

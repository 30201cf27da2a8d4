#ifndef QUORVANE_INSPECT_NETWORK_READER_H_
#define QUORVANE_INSPECT_NETWORK_READER_H_

#include <string>

#include "network/network_table.h"

namespace quorvane {

// Reads a network file whole. Stricter than the utility, which takes what it can use: throws a Fault if the
// file cannot be read, is something else, is cut short or goes on behind its end record, or if a list is no
// forest of patterns in preorder with finite weights.
NetworkTable readNetwork(const std::string& name);

}  // namespace quorvane

#endif  // QUORVANE_INSPECT_NETWORK_READER_H_

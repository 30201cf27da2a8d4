#ifndef QUORVANE_INSPECT_COMMON_NETWORK_READER_H_
#define QUORVANE_INSPECT_COMMON_NETWORK_READER_H_

#include <string>

#include "network/network_table.h"

namespace quorvane::inspect {

// Reads a network file whole and strictly; throws a Fault if it cannot be read or is no network.
NetworkTable readNetwork(const std::string& name);

}  // namespace quorvane::inspect

#endif  // QUORVANE_INSPECT_COMMON_NETWORK_READER_H_

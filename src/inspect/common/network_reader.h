#ifndef QUORVANE_INSPECT_COMMON_NETWORK_READER_H_
#define QUORVANE_INSPECT_COMMON_NETWORK_READER_H_

#include <string>

#include "inspect/common/fault.h"
#include "network/strict_network.h"

namespace quorvane::inspect {

// Reads a network file whole and strictly; throws a Fault if it cannot be read or is no network.
inline NetworkTable readNetwork(const std::string& name) {
  try {
    return readStrictly(name);
  } catch (const DamagedNetwork& damage) {
    throw Fault(name, damage.what());
  }
}

}  // namespace quorvane::inspect

#endif  // QUORVANE_INSPECT_COMMON_NETWORK_READER_H_

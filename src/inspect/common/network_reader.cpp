#include "inspect/common/network_reader.h"

#include "inspect/common/fault.h"
#include "network/strict_network.h"

namespace quorvane::inspect {

NetworkTable readNetwork(const std::string& name) {
  try {
    return readStrictly(name);
  } catch (const DamagedNetwork& damage) {
    throw Fault(name, damage.what());
  }
}

}  // namespace quorvane::inspect

#ifndef QUORVANE_NETWORK_FINGERPRINT_H_
#define QUORVANE_NETWORK_FINGERPRINT_H_

#include <string>

#include "network/network_table.h"

namespace quorvane {

// Tells networks apart: 16 hexadecimal digits, worked out from all patterns and weights.
std::string fingerprintOf(const NetworkTable& table);

}  // namespace quorvane

#endif  // QUORVANE_NETWORK_FINGERPRINT_H_

#include <iostream>

#include "files/replace_file.h"
#include "network/network.h"
#include "network/network_file.h"

namespace quorvane {

// Where there is no room the old file stays, and the next save tries again.
void Network::saveNetwork() {
  if (replaceFile(networkFileName, encodeNetwork(networkTable)) == Saved::notWritable) {
    std::cout << "Error: network.dat file not found.\n";
  }
}

}  // namespace quorvane

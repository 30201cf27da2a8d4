#include <fstream>
#include <iostream>

#include "files/replace_file.h"
#include "network/network.h"
#include "network/network_file.h"

namespace quorvane {

void Network::loadNetwork() {
  std::ifstream file(networkFileName, std::ios::binary);
  if (!file) {
    std::cout << "Error: network.dat file not found!\n";
    return;
  }
  const NetworkFlaw flaw = decodeNetwork(file, networkTable);
  if (flaw.kind == NetworkFlaw::noVersion || flaw.kind == NetworkFlaw::wrongVersion) {
    std::cout << "Error: wrong version of the network.dat file!\n";
  }
}

// Where there is no room the old file stays, and the next save tries again.
void Network::saveNetwork() {
  if (replaceFile(networkFileName, encodeNetwork(networkTable)) == Saved::notWritable) {
    std::cout << "Error: network.dat file not found.\n";
  }
}

}  // namespace quorvane

#include <fstream>
#include <iostream>

#include "files/file_name.h"
#include "files/replace_file.h"
#include "network/network.h"
#include "network/network_file.h"

namespace quorvane {

void Network::loadNetwork() {
  std::ifstream file(pathOf(fileInUse), std::ios::binary);
  if (!file) {
    std::cout << "Error: " << inOneLine(fileInUse) << " file not found!\n";
    return;
  }
  const NetworkFlaw flaw = decodeNetwork(file, networkTable);
  if (flaw.kind == NetworkFlaw::noVersion || flaw.kind == NetworkFlaw::wrongVersion) {
    std::cout << "Error: wrong version of the " << inOneLine(fileInUse) << " file!\n";
  }
}

// Where there is no room the old file stays, and the next save tries again.
Saved Network::saveNetwork() {
  const Saved saved = replaceFile(pathOf(fileInUse), encodeNetwork(networkTable));
  if (saved == Saved::notWritable) std::cout << "Error: " << inOneLine(fileInUse) << " file not found.\n";
  return saved;
}

}  // namespace quorvane

#include "inspect/network_reader.h"

#include <filesystem>
#include <fstream>
#include <system_error>

#include "inspect/fault.h"
#include "network/strict_network.h"

namespace quorvane::inspect {

NetworkTable readNetwork(const std::string& name) {
  std::error_code error;
  if (std::filesystem::is_directory(name, error)) throw Fault(name, "is a folder");
  std::ifstream file(name, std::ios::binary);
  if (!file) throw Fault(name, "cannot be opened");
  try {
    return readStrictly(file);
  } catch (const DamagedNetwork& damage) {
    throw Fault(name, damage.what());
  }
}

}  // namespace quorvane::inspect

#include "inspect/output_target.h"

#include <filesystem>
#include <fstream>

#include "files/file_name.h"
#include "inspect/fault.h"

namespace quorvane::inspect {

namespace fs = std::filesystem;

void refuseHarm(const std::string& target, const std::vector<std::string>& inputs, std::string_view marker,
                const std::string& what) {
  std::error_code error;
  const fs::path path = pathOf(target);
  for (const std::string& input : inputs) {
    if (target == input || fs::equivalent(path, pathOf(input), error))
      throw Fault(target, "is read, and cannot be written as well");
  }
  const fs::file_status status = fs::status(path, error);
  if (fs::is_directory(status)) throw Fault(target, "is a folder");
  if (!fs::is_regular_file(status) || fs::file_size(path, error) == 0) return;
  constexpr std::size_t beginning = 1000;
  std::string start(beginning, '\0');
  std::ifstream file(path, std::ios::binary);
  file.read(start.data(), beginning);
  start.resize(static_cast<std::size_t>(file.gcount()));
  if (start.find(marker) == std::string::npos) {
    throw Fault(target,
                "exists and is no " + what + " of quorvane-inspect; remove it first, or choose another name");
  }
}

}  // namespace quorvane::inspect

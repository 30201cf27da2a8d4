#include "inspect/common/output_file.h"

#include <filesystem>
#include <fstream>

#include "files/file_name.h"
#include "files/replace_file.h"
#include "inspect/common/fault.h"

namespace quorvane::inspect {

namespace fs = std::filesystem;

void refuseInput(const std::string& target, const std::vector<std::string>& inputs) {
  std::error_code error;
  const fs::path path = pathOf(target);
  for (const std::string& input : inputs) {
    if (target == input || fs::equivalent(path, pathOf(input), error))
      throw Fault(target, "is read, and cannot be written as well");
  }
  if (fs::is_directory(path, error)) throw Fault(target, "is a folder");
}

bool holdsSomething(const std::string& target) {
  std::error_code error;
  const fs::path path = pathOf(target);
  return fs::is_regular_file(path, error) && fs::file_size(path, error) != 0;
}

void refuseHarm(const std::string& target, const std::vector<std::string>& inputs, std::string_view marker,
                const std::string& what) {
  refuseInput(target, inputs);
  if (!holdsSomething(target)) return;
  constexpr std::size_t beginning = 1000;
  std::string start(beginning, '\0');
  std::ifstream file(pathOf(target), std::ios::binary);
  file.read(start.data(), beginning);
  start.resize(static_cast<std::size_t>(file.gcount()));
  if (start.find(marker) == std::string::npos) {
    throw Fault(target,
                "exists and is no " + what + " of quorvane-inspect; remove it first, or choose another name");
  }
}

void writeOutput(const std::string& target, std::string_view text) {
  std::error_code error;
  const fs::path path = pathOf(target);
  if (fs::is_directory(path, error)) throw Fault(target, "is a folder");
  if (replaceFile(path, text) != Saved::yes) throw Fault(target, "cannot be written");
}

std::string writtenText(const std::string& target) {
  std::error_code error;
  const auto size = fs::file_size(pathOf(target), error);
  return "wrote " + target + (error ? "" : ", " + std::to_string((size + 1023) / 1024) + " KB");
}

}  // namespace quorvane::inspect

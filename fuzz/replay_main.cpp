// Gives every file of the named corpus folder to a fuzz target.

#include <cstdio>
#include <filesystem>
#include <vector>

#include "fuzz/fuzz_target.h"
#include "support/files.h"

int main(int, char** argv) {
  // All names first: the target changes the current folder.
  std::vector<std::string> names;
  for (const auto& file : std::filesystem::directory_iterator(std::filesystem::absolute(argv[1]))) {
    names.push_back(file.path());
  }
  for (const std::string& name : names) {
    std::fprintf(stderr, "%s\n", name.c_str());  // a crash leaves it as the last line
    const std::string bytes = quorvane::readFile(name);
    LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size());
  }
  return names.empty() ? 1 : 0;
}

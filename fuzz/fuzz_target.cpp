#include "fuzz/fuzz_target.h"

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>

namespace quorvane {

namespace fs = std::filesystem;

void require(bool holds, const char* law) {
  if (holds) return;
  std::fprintf(stderr, "does not hold: %s\n", law);
  std::abort();
}

void enterScratchFolder() {
  static std::string path;
  if (!path.empty()) return;
  const fs::path memory = "/dev/shm";
  path = ((fs::is_directory(memory) ? memory : fs::temp_directory_path()) / "quorvane-fuzz-XXXXXX").string();
  require(mkdtemp(path.data()) != nullptr, "a temporary folder can be made");
  fs::current_path(path);
  std::atexit([] { fs::remove_all(path); });
  std::cout.setstate(std::ios::badbit);
}

void writeFile(const char* name, std::string_view bytes) {
  std::ofstream(name, std::ios::binary) << bytes;
}

std::string readFile(const char* name) {
  std::ifstream file(name, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

}  // namespace quorvane

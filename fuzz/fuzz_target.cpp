#include "fuzz/fuzz_target.h"

#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <iostream>
#include <iterator>

#include "tests/support/temporary_folder.h"

namespace quorvane {

void require(bool holds, const char* law) {
  if (holds) return;
  std::fprintf(stderr, "does not hold: %s\n", law);
  std::abort();
}

void enterScratchFolder() {
  static const TemporaryFolder folder;
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

#include "fuzz/fuzz_target.h"

#include <cstdio>
#include <cstdlib>
#include <iostream>

#include "support/temporary_folder.h"

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

}  // namespace quorvane

#ifndef _WIN32

#include <unistd.h>

#include "terminal/terminal.h"

namespace quorvane {

Terminal::Terminal() = default;
Terminal::~Terminal() {}

bool errorsAreWatched() {
  return isatty(STDERR_FILENO) == 1;
}

}  // namespace quorvane

#endif

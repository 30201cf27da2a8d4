#include <csignal>

#include "console/console.h"

int main() {
#ifdef SIGPIPE
  // Whoever reads the output may go away; what is being learned is still wanted.
  std::signal(SIGPIPE, SIG_IGN);
#endif
  return quorvane::runConsole();
}

#include <csignal>

#include "console/console.h"
#include "terminal/terminal.h"

int main() {
#ifdef SIGPIPE
  // Whoever reads the output may go away; what is being learned is still wanted.
  std::signal(SIGPIPE, SIG_IGN);
#endif
#ifdef SIGXFSZ
  // A file that may not grow is a full disk: the old network.dat stays.
  std::signal(SIGXFSZ, SIG_IGN);
#endif
  const quorvane::Terminal terminal;
  return quorvane::runConsole();
}

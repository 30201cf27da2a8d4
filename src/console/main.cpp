#include <csignal>
#include <span>

#include "console/console.h"
#include "terminal/terminal.h"

int main(int argc, char** argv) {
#ifdef SIGPIPE
  // Whoever reads the output may go away; what is being learned is still wanted.
  std::signal(SIGPIPE, SIG_IGN);
#endif
#ifdef SIGXFSZ
  // A file that may not grow is a full disk: the old network.dat stays.
  std::signal(SIGXFSZ, SIG_IGN);
#endif
  const quorvane::Terminal terminal;
  if (argc <= 1) return quorvane::runConsole();
  int status = 0;
  const auto line =
      quorvane::parseCommandLine(std::span(argv, static_cast<std::size_t>(argc)).subspan(1), status);
  return line ? quorvane::learnFrom(*line) : status;
}

#include <algorithm>
#include <csignal>
#include <exception>
#include <iostream>
#include <optional>
#include <string>

#include "inspect/command_line.h"
#include "terminal/terminal.h"

namespace quorvane::inspect {
namespace {

constexpr int faultStatus = 1;

// Faults are one line each, whatever stands in the names of files.
int tell(std::string fault) {
  std::ranges::replace_if(
      fault, [](unsigned char byte) { return byte < ' '; }, '?');
  std::cerr << "quorvane-inspect: " << fault << '\n';
  return faultStatus;
}

int run(int argc, char** argv) {
  Arguments arguments;
  int status = 0;
  try {
    const std::optional<Command> command = parseCommandLine(argc, argv, arguments, status);
    if (command) (*command)(arguments);
    return status;
  } catch (const std::exception& fault) {
    return tell(fault.what());
  }
}

}  // namespace
}  // namespace quorvane::inspect

int main(int argc, char** argv) {
#ifdef SIGXFSZ
  // A file that may not grow is a full disk: the old page stays.
  std::signal(SIGXFSZ, SIG_IGN);
#endif
  const quorvane::Terminal terminal;
  return quorvane::inspect::run(argc, argv);
}

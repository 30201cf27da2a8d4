#ifndef QUORVANE_CONSOLE_CONSOLE_H_
#define QUORVANE_CONSOLE_CONSOLE_H_

#include "console/command_line.h"

namespace quorvane {

// The whole run, from the banner to network.dat: asks for game files on standard input, learns from them, and
// prints everything on standard output. Gives the exit status, 0.
int runConsole();

// The same with the files of the command line, without questions. The network is written only if there is
// something to write; a reason that it was not is told on standard error. Gives the exit status.
int learnFrom(const CommandLine& line);

}  // namespace quorvane

#endif  // QUORVANE_CONSOLE_CONSOLE_H_

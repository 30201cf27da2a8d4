#ifndef QUORVANE_CONSOLE_CONSOLE_H_
#define QUORVANE_CONSOLE_CONSOLE_H_

namespace quorvane {

// The whole run, from the banner to network.dat: asks for game files on standard input, learns from them, and
// prints everything on standard output. Gives the exit status, 0.
int runConsole();

}  // namespace quorvane

#endif  // QUORVANE_CONSOLE_CONSOLE_H_

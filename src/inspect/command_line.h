#ifndef QUORVANE_INSPECT_COMMAND_LINE_H_
#define QUORVANE_INSPECT_COMMAND_LINE_H_

#include <optional>

#include "inspect/arguments.h"

namespace quorvane::inspect {

// Runs one command, with its arguments.
using Command = void (*)(const Arguments&);

// The command that the command line names, with its arguments in `arguments`. Nothing if there is none to
// run: help or the version has been printed, with `status` 0, or an error about wrong usage, with `status` 2.
std::optional<Command> parseCommandLine(int argc, const char* const* argv, Arguments& arguments, int& status);

}  // namespace quorvane::inspect

#endif  // QUORVANE_INSPECT_COMMAND_LINE_H_

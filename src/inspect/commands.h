#ifndef QUORVANE_INSPECT_COMMANDS_H_
#define QUORVANE_INSPECT_COMMANDS_H_

#include "inspect/arguments.h"

namespace quorvane::inspect {

// The commands: each prints or writes what it has to tell, or throws a Fault.
void runShow(const Arguments& arguments);
void runExplain(const Arguments& arguments);
void runValidate(const Arguments& arguments);
void runCompare(const Arguments& arguments);
void runGames(const Arguments& arguments);
void runAnnotate(const Arguments& arguments);
void runReport(const Arguments& arguments);

}  // namespace quorvane::inspect

#endif  // QUORVANE_INSPECT_COMMANDS_H_

#ifndef QUORVANE_PLAY_COMMAND_LINE_H_
#define QUORVANE_PLAY_COMMAND_LINE_H_

#include <span>

namespace quorvane::play {

// Does what the command line says, the program's name being its first word; gives the exit status.
int runCommandLine(std::span<const char* const> words);

}  // namespace quorvane::play

#endif  // QUORVANE_PLAY_COMMAND_LINE_H_

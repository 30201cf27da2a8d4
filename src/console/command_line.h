#ifndef QUORVANE_CONSOLE_COMMAND_LINE_H_
#define QUORVANE_CONSOLE_COMMAND_LINE_H_

#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "network/network_file.h"

namespace quorvane {

// What the command line says.
struct CommandLine {
  std::vector<std::string> files;  // of games, at least one
  std::string network = networkFileName;
};

// Statuses of a run that was not asked to ask; readme.txt tells them.
enum ExitStatus { learned = 0, nothingLearned = 1, wrongUsage = 2 };

std::string inQuotes(std::string_view name);

// Tells the reason in one line on standard error, whatever stands in the names of files, and gives the
// status.
int refuse(ExitStatus status, const std::string& reason);

// Why the file cannot be read, empty if nothing forbids it. What can be read once, such as a pipe, is not
// opened.
std::string reasonNotToRead(const std::string& name);

// The command line with files that can be read; REQUIRES at least one word, the program's name not counted.
// Nothing if there is nothing to learn: help or the version has been printed, with `status` 0, or the fault,
// with `status` 2.
std::optional<CommandLine> parseCommandLine(std::span<const char* const> words, int& status);

}  // namespace quorvane

#endif  // QUORVANE_CONSOLE_COMMAND_LINE_H_

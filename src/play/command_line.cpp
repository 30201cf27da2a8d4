#include "play/command_line.h"

#include <filesystem>
#include <iostream>
#include <string>

#include "files/file_name.h"
#include "play/protocol/protocol.h"

namespace quorvane::play {

namespace {

// In the current folder, or beside the program; empty if there is none.
std::string usualNetwork(const std::string& program) {
  const std::string name = "network.dat";
  std::error_code error;
  if (std::filesystem::exists(pathOf(name), error)) return name;
  const std::size_t slash = program.find_last_of("/\\");
  if (slash == std::string::npos) return {};
  const std::string beside = program.substr(0, slash + 1) + name;
  return std::filesystem::exists(pathOf(beside), error) ? beside : "";
}

}  // namespace

int runCommandLine(std::span<const char* const> words) {
  const std::string program = words.empty() ? "" : words[0];
  LineQueue lines(std::cin);
  Protocol(lines, std::cout, usualNetwork(program)).run();
  return 0;
}

}  // namespace quorvane::play

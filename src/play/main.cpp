#include <iostream>
#include <span>

#include "play/command_line.h"
#include "terminal/terminal.h"

int main(int argc, char** argv) {
  const quorvane::Terminal terminal;
  return quorvane::play::runCommandLine(std::span(argv, static_cast<std::size_t>(argc)));
}

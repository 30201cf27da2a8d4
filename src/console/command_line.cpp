#include "console/command_line.h"

#include <algorithm>
#include <cassert>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <string_view>
#include <system_error>

#include "console/help_text.h"
#include "files/file_name.h"
#include "network/network_file.h"

namespace quorvane {

namespace {

namespace fs = std::filesystem;

constexpr std::string_view networkOption = "--network";

// Or is empty. What lies about as network.dat is replaced, whatever it is.
bool beginsLikeNetwork(const fs::path& file) {
  std::ifstream stream(file, std::ios::binary);
  NetworkTable table;
  const NetworkFlaw flaw = decodeNetwork(stream, table);
  return flaw.kind != NetworkFlaw::wrongVersion && (flaw.kind != NetworkFlaw::noVersion || flaw.value == 0);
}

// The network may be missing; learning makes it.
std::string faultOfNetwork(const CommandLine& line) {
  std::error_code error;
  const fs::path network = pathOf(line.network);
  if (network.empty()) return inQuotes(line.network) + " is no name of a file";
  const fs::file_status status = fs::status(network, error);
  if (status.type() == fs::file_type::not_found) return {};
  if (fs::is_fifo(status)) return inQuotes(line.network) + " is a pipe, which cannot be a network";
  std::string reason = reasonNotToRead(line.network);
  if (!reason.empty()) return reason;
  if (line.network != networkFileName && fs::is_regular_file(status) && !beginsLikeNetwork(network))
    return inQuotes(line.network) + " is no network, and would be written over";
  const auto isNetwork = [&](const std::string& name) {
    return fs::equivalent(pathOf(name), network, error);
  };
  const auto both = std::ranges::find_if(line.files, isNetwork);
  return both == line.files.end() ? "" : inQuotes(*both) + " is the network, and would be written over";
}

// What is wrong with the files, empty if nothing is.
std::string faultOf(const CommandLine& line) {
  if (line.files.empty()) return "name a file of games; --help tells how";
  for (const std::string& name : line.files) {
    std::string reason = reasonNotToRead(name);
    if (!reason.empty()) return reason;
  }
  return faultOfNetwork(line);
}

}  // namespace

std::string inQuotes(std::string_view name) {
  return std::string("'").append(name).append("'");
}

int refuse(ExitStatus status, const std::string& reason) {
  std::cerr << "quorvane-learn: " << inOneLine(reason) << '\n';
  return status;
}

std::string reasonNotToRead(const std::string& name) {
  std::error_code error;
  const fs::file_status status = fs::status(pathOf(name), error);
  if (status.type() == fs::file_type::not_found) return "there is no file " + inQuotes(name);
  if (fs::is_directory(status)) return inQuotes(name) + " is a folder";
  if (!fs::is_fifo(status) && !std::ifstream(pathOf(name))) return inQuotes(name) + " may not be read";
  return {};
}

std::optional<CommandLine> parseCommandLine(std::span<const char* const> words, int& status) {
  assert(!words.empty());
  CommandLine line;
  std::string fault;
  bool options = true;
  for (std::size_t i = 0; i < words.size() && fault.empty(); ++i) {
    const std::string_view word = words[i];
    if (!options || !word.starts_with("-")) {
      line.files.emplace_back(word);
    } else if (word == "--") {
      options = false;
    } else if (word == "--help" || word == "-h" || word == "--version") {
      std::cout << (word == "--version" ? "quorvane-learn " QUORVANE_VERSION "\n" : helpText);
      status = learned;
      return {};
    } else if (word == networkOption && i + 1 < words.size()) {
      line.network = words[++i];
    } else if (word.starts_with("--network=")) {
      line.network = word.substr(networkOption.size() + 1);
    } else {
      fault = word == networkOption ? "--network needs a file" : "there is no option " + inQuotes(word);
    }
  }
  if (fault.empty() && line.network.empty()) fault = "--network needs a file";
  if (fault.empty()) fault = faultOf(line);
  if (fault.empty()) return line;
  status = refuse(wrongUsage, fault);
  return {};
}

}  // namespace quorvane

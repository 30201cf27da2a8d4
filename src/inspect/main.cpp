#include <unistd.h>

#include <CLI/CLI.hpp>
#include <iostream>
#include <limits>
#include <optional>
#include <vector>

#include "inspect/bit_names.h"
#include "inspect/fault.h"
#include "inspect/html_report.h"
#include "inspect/json_output.h"
#include "inspect/network_reader.h"
#include "inspect/position.h"
#include "inspect/text_output.h"
#include "network/network_file.h"

namespace quorvane {
namespace {

constexpr int faultStatus = 1;
constexpr int usageStatus = 2;
constexpr int largestNumber = 1'000'000;

// What the command line says; each command uses its share.
struct Arguments {
  std::string network = networkFileName;
  std::optional<PositionType> type;
  std::string kind;
  std::size_t top = 20;
  std::size_t topOfPiece = std::numeric_limits<std::size_t>::max();
  bool json = false;
  std::string fen;
  std::string gameFile;
  std::int32_t game = 1;
  std::int32_t ply = 0;
  std::vector<std::string> files;
  std::string page;
};

void print(const std::string& text) {
  std::cout << text << std::flush;
  if (!std::cout) throw Fault("standard output", "cannot be written");
}

// One line that grows, for people only.
void showProgress(const std::string& file, std::int32_t done, std::int32_t games) {
  constexpr std::int64_t width = 40;
  const auto filled = [&](std::int32_t count) { return static_cast<std::size_t>(count * width / games); };
  if (done > 1 && filled(done) == filled(done - 1)) return;
  std::cerr << "\r[" << std::string(filled(done), '#') << std::string(width - filled(done), ' ') << "] "
            << file;
  if (done == games) std::cerr << "\r\033[K";
  std::cerr << std::flush;
}

Validation validate(const Arguments& arguments) {
  const bool forPeople = isatty(STDERR_FILENO) == 1;
  return validateOn(arguments.files, forPeople ? ShowProgress(showProgress) : ShowProgress([](auto&&...) {}));
}

void runShow(const Arguments& arguments) {
  Selection selection{arguments.type, {}};
  for (std::int32_t kind = 0; kind < pieceKindCount; ++kind) {
    if (arguments.kind == kindName(kind)) selection.kind = kind;
  }
  const std::vector<ListSummary> lists = summarise(networkTable, selection);
  print(arguments.json ? textOf(showJson(arguments.network, lists, arguments.top))
                       : showText(lists, arguments.top));
}

void runExplain(const Arguments& arguments) {
  const Position position;
  if (arguments.gameFile.empty()) {
    Position::setFen(arguments.fen);
  } else {
    Position::setGame(arguments.gameFile, arguments.game, arguments.ply);
  }
  const Explanation explanation = explainPosition();
  print(arguments.json ? textOf(explainJson(arguments.network, explanation, arguments.topOfPiece))
                       : explainText(explanation, arguments.topOfPiece));
}

void runValidate(const Arguments& arguments) {
  const Validation validation = validate(arguments);
  print(arguments.json ? textOf(validateJson(arguments.network, validation)) : validateText(validation));
}

void runReport(const Arguments& arguments) {
  std::optional<Validation> validation;
  if (!arguments.files.empty()) validation = validate(arguments);
  writeReport(arguments.page, reportPage(reportJson(arguments.network, networkTable, validation)));
}

void addNetwork(CLI::App& command, Arguments& arguments, const std::string& name) {
  command.add_option(name, arguments.network, "The network file")->capture_default_str();
}

void addJson(CLI::App& command, Arguments& arguments) {
  command.add_flag("--json", arguments.json, "Print JSON, for programs");
}

CLI::App& addShow(CLI::App& app, Arguments& arguments) {
  CLI::App& show = *app.add_subcommand("show", "Counts, weights and the strongest patterns");
  addNetwork(show, arguments, "network");
  show.add_option("--type", arguments.type, "Only this position type, 0 to 13")
      ->check(CLI::Range(0, lastPositionType));
  std::vector<std::string> kinds;
  kinds.reserve(pieceKindCount);
  for (std::int32_t kind = 0; kind < pieceKindCount; ++kind) kinds.emplace_back(kindName(kind));
  show.add_option("--kind", arguments.kind, "Only this piece kind")->check(CLI::IsMember(kinds));
  show.add_option("--top", arguments.top, "How many of the strongest patterns")
      ->check(CLI::Range(0, largestNumber))
      ->capture_default_str();
  addJson(show, arguments);
  return show;
}

CLI::App& addExplain(CLI::App& app, Arguments& arguments) {
  CLI::App& explain = *app.add_subcommand("explain", "What a position is worth, and why");
  addNetwork(explain, arguments, "network");
  CLI::Option_group& source = *explain.add_option_group("position");
  source.require_option(1);
  source.add_option("--fen", arguments.fen, "The position as FEN");
  CLI::Option* const file =
      source.add_option("--pgn", arguments.gameFile, "The position from a game of this file");
  explain.add_option("--game", arguments.game, "Which game of the file, from 1")
      ->needs(file)
      ->check(CLI::Range(1, largestNumber));
  explain.add_option("--ply", arguments.ply, "Behind how many moves of either side")
      ->needs(file)
      ->check(CLI::Range(0, largestNumber));
  explain
      .add_option("--top", arguments.topOfPiece, "How many patterns of each piece (all of them otherwise)")
      ->check(CLI::Range(0, largestNumber));
  addJson(explain, arguments);
  return explain;
}

CLI::App& addValidate(CLI::App& app, Arguments& arguments) {
  CLI::App& command = *app.add_subcommand("validate", "Measures the network on games, without learning");
  command.add_option("files", arguments.files, "Files of games")->required();
  addNetwork(command, arguments, "--network");
  addJson(command, arguments);
  return command;
}

CLI::App& addReport(CLI::App& app, Arguments& arguments) {
  CLI::App& command = *app.add_subcommand("report", "All of it as one page for a browser");
  addNetwork(command, arguments, "network");
  command.add_option("-o,--output", arguments.page, "The page to write")->required();
  command.add_option("--validate", arguments.files, "Files of games to measure the network on");
  return command;
}

using Command = void (*)(const Arguments&);

// Faults are one line each, whatever stands in the names of files.
int report(std::string fault) {
  std::ranges::replace_if(
      fault, [](char character) { return character >= 0 && character < ' '; }, '?');
  std::cerr << "quorvane-inspect: " << fault << '\n';
  return faultStatus;
}

int run(int argc, char** argv) {
  Arguments arguments;
  CLI::App app("Shows what quorvane-learn has learned, and changes nothing.");
  app.require_subcommand(1);
  const std::pair<CLI::App*, Command> commands[] = {{&addShow(app, arguments), runShow},
                                                    {&addExplain(app, arguments), runExplain},
                                                    {&addValidate(app, arguments), runValidate},
                                                    {&addReport(app, arguments), runReport}};
  try {
    app.parse(argc, argv);
  } catch (const CLI::ParseError& error) {
    return app.exit(error) == 0 ? 0 : usageStatus;
  }
  try {
    networkTable = readNetwork(arguments.network);
    for (const auto& [command, runCommand] : commands) {
      if (command->parsed()) runCommand(arguments);
    }
    return 0;
  } catch (const std::exception& fault) {
    return report(fault.what());
  }
}

}  // namespace
}  // namespace quorvane

int main(int argc, char** argv) {
  return quorvane::run(argc, argv);
}

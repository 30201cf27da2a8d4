#include "inspect/command_line.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <iostream>
#include <numeric>
#include <string_view>
#include <vector>

#include "configurations/bit_names.h"
#include "inspect/commands.h"

namespace quorvane::inspect {

namespace {

constexpr int usageStatus = 2;
constexpr int largestNumber = 1'000'000;

void addNetwork(CLI::App& command, Arguments& arguments, const std::string& name) {
  command.add_option(name, arguments.network, "The network file")->capture_default_str();
}

void addGames(CLI::App& command, Arguments& arguments) {
  command.add_option("files", arguments.files, "Files of games")->required();
}

void addJson(CLI::App& command, Arguments& arguments) {
  command.add_flag("--json", arguments.json, "Print JSON, for programs");
}

void addCalibration(CLI::App& command, Arguments& arguments) {
  command.add_option("--calibration", arguments.calibration,
                     "Read expected scores from this file (else NETWORK.calibration.json if it is there)");
}

CLI::Option* addNodes(CLI::App& command, Arguments& arguments, const std::string& description) {
  return command.add_option("--nodes", arguments.nodes, description)->check(CLI::Range(100, 1'000'000'000));
}

void addShow(CLI::App& show, Arguments& arguments) {
  addNetwork(show, arguments, "network,--network");
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
}

void addExplain(CLI::App& explain, Arguments& arguments) {
  addNetwork(explain, arguments, "network,--network");
  CLI::Option_group& source = *explain.add_option_group("position");
  source.require_option(1);
  source.add_option("--fen", arguments.fen, "The position as FEN");
  CLI::Option* const lines =
      source.add_option("--fens", arguments.fens,
                        "A file of FENs, one a line (- for standard input); prints a line of JSON for each");
  CLI::Option* const file =
      source.add_option("--pgn", arguments.gameFile, "The position from a game of this file");
  explain.add_flag("--lenient", arguments.lenient, "Take every FEN that the utility takes")->excludes(file);
  explain
      .add_flag("--guess-castling", arguments.guessCastling,
                "Take a side of a FEN for one that has castled where it looks like it")
      ->excludes(file);
  addNodes(explain, arguments, "Search so many nodes as well")->excludes(lines);
  explain.add_option("--game", arguments.game, "Which game of the file, from 1")
      ->needs(file)
      ->check(CLI::Range(1, largestNumber));
  explain.add_option("--ply", arguments.ply, "Behind how many moves of either side")
      ->needs(file)
      ->check(CLI::Range(0, largestNumber));
  CLI::Option* const top =
      explain.add_option("--top", arguments.topOfPiece, "So many patterns of every piece")
          ->check(CLI::Range(0, largestNumber));
  explain.add_flag("--all", arguments.all, "All patterns of every piece")->excludes(top);
  addCalibration(explain, arguments);
  addJson(explain, arguments);
}

void addValidate(CLI::App& validate, Arguments& arguments) {
  addGames(validate, arguments);
  addNetwork(validate, arguments, "--network");
  CLI::Option* const written =
      validate.add_option("--calibration", arguments.calibration,
                          "Fit expected scores on these games, and write them to this file");
  validate
      .add_option(
          "--curves", arguments.curves,
          "Read expected scores from this file (else NETWORK.calibration.json if it is there, else fit them "
          "on these games)")
      ->excludes(written);
  addJson(validate, arguments);
}

void addAnnotate(CLI::App& annotate, Arguments& arguments) {
  annotate.add_option("file", arguments.files, "A file of games")->required()->expected(1);
  annotate.add_option("-o,--output", arguments.output, "The file of annotated games to write")->required();
  addNetwork(annotate, arguments, "--network");
  addCalibration(annotate, arguments);
  addNodes(annotate, arguments, "Values behind a search of so many nodes each");
  annotate.add_flag("--force", arguments.force, "Replace the output if it is there");
}

void addReport(CLI::App& report, Arguments& arguments) {
  addNetwork(report, arguments, "network,--network");
  report.add_option("-o,--output", arguments.output, "The page to write")->required();
  report.add_option("--validate", arguments.files, "Files of games to measure the network on");
  report.add_option("--learned-from", arguments.learnedFrom,
                    "What the network was learned from, for the head of the page");
  addCalibration(report, arguments);
}

void addCompare(CLI::App& compare, Arguments& arguments) {
  compare.add_option("A", arguments.network, "A network file")->required();
  compare.add_option("B", arguments.otherNetwork, "Another network file")->required();
  addGames(compare, arguments);
  addJson(compare, arguments);
}

void addGamesCommand(CLI::App& games, Arguments& arguments) {
  addGames(games, arguments);
  addJson(games, arguments);
}

struct Entry {
  const char* name;
  const char* description;
  void (*addOptions)(CLI::App&, Arguments&);
  Command run;
};
constexpr Entry entries[] = {
    {"show", "Counts, weights and the strongest patterns", addShow, runShow},
    {"explain", "What a position is worth, and why", addExplain, runExplain},
    {"validate", "Measures the network on games, without learning", addValidate, runValidate},
    {"compare", "Which of two networks does better on games", addCompare, runCompare},
    {"games", "Which games count, and why the others do not", addGamesCommand, runGames},
    {"annotate", "Games with the value of the position behind each move", addAnnotate, runAnnotate},
    {"report", "All of it as one page for a browser", addReport, runReport},
};

// How many letters have to be added, dropped or replaced to make one word of the other (Levenshtein 1966).
std::size_t editDistance(std::string_view one, std::string_view other) {
  std::vector<std::size_t> row(other.size() + 1);
  std::iota(row.begin(), row.end(), std::size_t{0});
  for (std::size_t i = 0; i < one.size(); ++i) {
    std::size_t diagonal = std::exchange(row[0], i + 1);
    for (std::size_t j = 0; j < other.size(); ++j) {
      const std::size_t replaced = diagonal + (one[i] == other[j] ? 0 : 1);
      diagonal = row[j + 1];
      row[j + 1] = std::min({replaced, row[j] + 1, diagonal + 1});
    }
  }
  return row.back();
}

bool isCommand(std::string_view word) {
  return std::ranges::any_of(entries, [&](const Entry& entry) { return entry.name == word; });
}

// "unknown command 'shwo', did you mean 'show'?"
std::string unknownCommand(const std::string& word) {
  const Entry& nearest = *std::ranges::min_element(
      entries, {}, [&](const Entry& entry) { return editDistance(word, entry.name); });
  std::string text = "unknown command '" + word + "'";
  constexpr std::size_t farthest = 2;
  if (editDistance(word, nearest.name) <= farthest) return text + ", did you mean '" + nearest.name + "'?";
  text += "; there are";
  for (const Entry& entry : entries) text += std::string(&entry == entries ? " " : ", ") + entry.name;
  return text;
}

}  // namespace

std::optional<Command> parseCommandLine(int argc, const char* const* argv, Arguments& arguments,
                                        int& status) {
  const std::string first = argc > 1 ? argv[1] : "";
  if (!first.empty() && first[0] != '-' && !isCommand(first)) {
    std::cerr << "quorvane-inspect: " << unknownCommand(first) << '\n';
    status = usageStatus;
    return {};
  }
  CLI::App app("Shows what quorvane-learn has learned, and changes nothing.");
  app.set_version_flag("--version", "quorvane-inspect " QUORVANE_VERSION);
  app.require_subcommand(1);
  app.allow_windows_style_options(false);  // there, too, what begins with a slash is a file
  for (const Entry& entry : entries)
    entry.addOptions(*app.add_subcommand(entry.name, entry.description), arguments);
  try {
    app.parse(argc, argv);
  } catch (const CLI::ParseError& error) {
    status = app.exit(error) == 0 ? 0 : usageStatus;
    return {};
  }
  for (const Entry& entry : entries) {
    if (app.got_subcommand(entry.name)) return entry.run;
  }
  return {};
}

}  // namespace quorvane::inspect

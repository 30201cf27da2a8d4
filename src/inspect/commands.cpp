#include "inspect/commands.h"

#include <filesystem>
#include <fstream>
#include <iostream>
#include <limits>
#include <optional>

#include "configurations/bit_names.h"
#include "files/file_name.h"
#include "inspect/annotate/annotation.h"
#include "inspect/common/fault.h"
#include "inspect/common/network_reader.h"
#include "inspect/common/output_file.h"
#include "inspect/explain/explanation_output.h"
#include "inspect/measure/calibration_file.h"
#include "inspect/measure/measure_output.h"
#include "inspect/patterns/summary_output.h"
#include "inspect/report/game_choice.h"
#include "inspect/report/page.h"
#include "inspect/report/page_data.h"
#include "terminal/terminal.h"

namespace quorvane::inspect {

namespace {

constexpr std::size_t gamesOfPage = 20;

void print(const std::string& text) {
  std::cout << text << std::flush;
  if (!std::cout) throw Fault("standard output", "cannot be written");
}

// What is no result, and must not get into one.
void note(const std::string& text) {
  std::cerr << "quorvane-inspect: " << text << '\n';
}

void printProgress(const std::string& file, std::int32_t done, std::int32_t games) {
  constexpr std::int64_t width = 40;
  const auto filled = [&](std::int32_t count) { return static_cast<std::size_t>(count * width / games); };
  if (done > 1 && filled(done) == filled(done - 1)) return;
  std::cerr << "\r[" << std::string(filled(done), '#') << std::string(width - filled(done), ' ') << "] "
            << file;
  if (done == games) std::cerr << "\r\033[K";
  std::cerr << std::flush;
}

// One line that grows, for people only.
ShowProgress progress() {
  if (errorsAreWatched()) return printProgress;
  return [](auto&&...) {};
}

// Files that a command reads.
std::vector<std::string> inputsOf(const Arguments& arguments) {
  std::vector<std::string> inputs = arguments.files;
  inputs.push_back(arguments.network);
  return inputs;
}

// The calibration of a network: the file named, or else the one beside the network, if there is one.
std::optional<Calibration> findCalibration(const std::string& named, const std::string& network,
                                           const NetworkTable& table) {
  const std::string fingerprint = fingerprintOf(table);
  if (!named.empty()) return readCalibration(named, fingerprint);
  const std::string beside = defaultCalibrationFile(network);
  if (!std::filesystem::exists(pathOf(beside))) return {};
  try {
    return readCalibration(beside, fingerprint);
  } catch (const Fault& fault) {
    note(std::string(fault.what()) + ", and is not used");
    return {};
  }
}

std::string howToCalibrate(const std::string& network) {
  const std::string option = network == networkFileName ? "" : " --network " + network;
  return "quorvane-inspect validate GAMES.pgn" + option + " --calibration " + defaultCalibrationFile(network);
}

// Who gives values, fit for a tag of a game.
std::string signatureOf(const std::string& network) {
  std::string name = network.substr(network.find_last_of("/\\") + 1);
  std::ranges::replace_if(
      name,
      [](char character) { return std::string_view("\"\\[]").find(character) != std::string_view::npos; },
      '_');
  return "quorvane-inspect " QUORVANE_VERSION ", " + inOneLine(name);
}

Origin setFen(const std::string& fen, const Arguments& arguments) {
  const auto rules = arguments.lenient ? Position::Rules::lenient : Position::Rules::chess;
  return Position::setFen(fen, rules, arguments.guessCastling);
}

// A line of JSON for each line of the input. Throws at the end if any was refused.
void explainLines(std::istream& input, const Arguments& arguments, const NetworkTable& table,
                  const std::optional<Calibration>& calibration) {
  std::size_t lines = 0;
  std::size_t refused = 0;
  for (std::string fen; std::getline(input, fen); ++lines) {
    if (fen.ends_with('\r')) fen.pop_back();
    Json json;
    try {
      setFen(fen, arguments);
      json = valueJson(fen, explainPosition(table, calibration));
    } catch (const Fault& fault) {
      json = {{"fen", fen}, {"error", fault.what()}};
      ++refused;
    }
    print(textOf(json, false));
  }
  if (refused != 0) {
    throw Fault(arguments.fens == "-" ? "standard input" : arguments.fens,
                std::to_string(refused) + " of " + std::to_string(lines) + " lines are no chess positions");
  }
}

void explainAll(const Arguments& arguments, const NetworkTable& table,
                const std::optional<Calibration>& calibration) {
  if (arguments.fens == "-") return explainLines(std::cin, arguments, table, calibration);
  const std::filesystem::path path = pathOf(arguments.fens);
  std::ifstream file(path, std::ios::binary);
  if (!file || std::filesystem::is_directory(path)) throw Fault(arguments.fens, "cannot be opened");
  explainLines(file, arguments, table, calibration);
}

}  // namespace

void runShow(const Arguments& arguments) {
  const NetworkTable table = readNetwork(arguments.network);
  Selection selection{arguments.type, {}};
  for (std::int32_t kind = 0; kind < pieceKindCount; ++kind) {
    if (arguments.kind == kindName(kind)) selection.kind = kind;
  }
  const std::vector<ListSummary> lists = summarise(table, selection);
  print(arguments.json ? textOf(showJson(arguments.network, lists, arguments.top))
                       : showText(lists, arguments.top));
}

void runExplain(const Arguments& arguments) {
  const NetworkTable table = readNetwork(arguments.network);
  const auto calibration = findCalibration(arguments.calibration, arguments.network, table);
  const Position position;
  if (!arguments.fens.empty()) return explainAll(arguments, table, calibration);
  const Origin origin = arguments.gameFile.empty()
                            ? setFen(arguments.fen, arguments)
                            : Position::setGame(arguments.gameFile, arguments.game, arguments.ply);
  Explanation explanation = explainPosition(table, calibration);
  if (arguments.nodes != 0) {
    if (!origin.position) throw Fault("FEN \"" + origin.fen + "\"", "cannot be searched");
    LookAhead lookAhead(arguments.network, arguments.calibration, arguments.nodes);
    explanation.searched = lookAhead.at(*origin.position, origin.earlierKeys);
  }
  constexpr auto everything = std::numeric_limits<std::size_t>::max();
  print(arguments.json ? textOf(explainJson(arguments.network, origin, explanation,
                                            arguments.topOfPiece.value_or(everything)))
                       : explainText(origin, explanation, arguments.all ? everything : arguments.topOfPiece,
                                     howToCalibrate(arguments.network)));
}

void runValidate(const Arguments& arguments) {
  const bool writes = !arguments.calibration.empty();
  if (writes) refuseHarm(arguments.calibration, inputsOf(arguments), calibrationMarker, "calibration");
  const NetworkTable table = readNetwork(arguments.network);
  std::optional<Calibration> curves;
  if (!writes) curves = findCalibration(arguments.curves, arguments.network, table);
  const Validation validation = validateOn(table, arguments.files, progress());
  std::string curvesFrom = "curves fitted on these very games";
  if (curves) {
    curvesFrom = "the curves of ";
    curvesFrom += arguments.curves.empty() ? defaultCalibrationFile(arguments.network) : arguments.curves;
  } else {
    curves = calibrate(arguments.network, table, validation);
  }
  const Judgement judgement = judge(validation, *curves);
  // First: whoever reads what is printed may have read enough.
  if (writes) writeOutput(arguments.calibration, textOf(calibrationJson(*curves)));
  print(arguments.json ? textOf(validateJson(arguments.network, validation, judgement))
                       : validateText(validation, judgement, curvesFrom));
  if (writes) note(writtenText(arguments.calibration));
}

void runCompare(const Arguments& arguments) {
  const std::string names[] = {arguments.network, arguments.otherNetwork};
  const NetworkTable tables[] = {readNetwork(names[0]), readNetwork(names[1])};
  std::vector<Validation> validations = validateOn(tables, arguments.files, progress());
  const auto contender = [&](std::size_t index) {
    Calibration curves = calibrate(names[index], tables[index], validations[index]);
    return Contender{names[index], std::move(validations[index]), std::move(curves)};
  };
  const Contender first = contender(0);
  const Contender second = contender(1);
  const Comparison comparison = compare(first, second);
  print(arguments.json ? textOf(compareJson(first, second, comparison))
                       : compareText(first, second, comparison));
}

void runGames(const Arguments& arguments) {
  std::vector<JudgedFile> files;
  for (const std::string& file : arguments.files) files.push_back(judgeFile(file, progress()));
  print(arguments.json ? textOf(gamesJson(files)) : gamesText(files));
}

void runAnnotate(const Arguments& arguments) {
  const std::string beside = defaultCalibrationFile(arguments.network);
  const std::string& curves = arguments.calibration.empty() ? beside : arguments.calibration;
  std::vector<std::string> inputs = inputsOf(arguments);
  inputs.push_back(curves);
  refuseInput(arguments.output, inputs);
  if (!arguments.force && holdsSomething(arguments.output))
    throw Fault(arguments.output, "exists; choose another name, or replace it with --force");
  const NetworkTable table = readNetwork(arguments.network);
  if (arguments.calibration.empty() && !std::filesystem::exists(pathOf(beside))) {
    throw Fault(arguments.network, "has no calibration; make one with: " + howToCalibrate(arguments.network));
  }
  const Calibration calibration = readCalibration(curves, fingerprintOf(table));
  std::optional<LookAhead> lookAhead;
  if (arguments.nodes != 0) lookAhead.emplace(arguments.network, curves, arguments.nodes);
  const AnnotatingNetwork by{table, calibration, signatureOf(arguments.network),
                             lookAhead ? &*lookAhead : nullptr};
  const Annotation annotation = annotateGames(arguments.files.front(), by, progress());
  writeOutput(arguments.output, annotation.text);
  // Not on standard output, which may be what -o names.
  for (const std::string& line : annotationLines(annotation.tally)) note(line);
  note(writtenText(arguments.output));
}

void runReport(const Arguments& arguments) {
  std::vector<std::string> inputs = inputsOf(arguments);
  if (!arguments.calibration.empty()) inputs.push_back(arguments.calibration);
  refuseHarm(arguments.output, inputs, pageMarker, "page");
  const NetworkTable table = readNetwork(arguments.network);
  PageInput input{arguments.network, arguments.learnedFrom, {}, {}, {}};
  input.calibration = findCalibration(arguments.calibration, arguments.network, table);
  if (!arguments.files.empty()) {
    const Validation& validation = input.validation.emplace(validateOn(table, arguments.files, progress()));
    if (!input.calibration) input.calibration = calibrate(arguments.network, table, validation);
    input.games =
        followGames(validation.files, chooseGames(validation, *input.calibration, gamesOfPage), table);
  }
  writeOutput(arguments.output, reportPage(pageData(input, table)));
  note(writtenText(arguments.output));
}

}  // namespace quorvane::inspect

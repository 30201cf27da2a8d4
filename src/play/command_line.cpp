#include "play/command_line.h"

#include <csignal>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <string>
#include <string_view>

#include "files/file_name.h"
#include "play/bench/bench.h"
#include "play/help_text.h"
#include "play/match/match_output.h"
#include "play/options.h"
#include "play/protocol/protocol.h"
#include "terminal/terminal.h"

namespace quorvane::play {

namespace {

namespace fs = std::filesystem;

enum ExitStatus { done = 0, failed = 1, wrongUsage = 2 };
constexpr std::string_view materialName = "material";

std::atomic<bool> interrupted{false};

// In the current folder, or beside the program; empty if there is none.
std::string usualNetwork(const std::string& program) {
  std::string name = "network.dat";
  std::error_code error;
  if (fs::exists(pathOf(name), error)) return name;
  const std::size_t slash = program.find_last_of("/\\");
  if (slash == std::string::npos) return {};
  const std::string beside = program.substr(0, slash + 1) + name;
  return fs::exists(pathOf(beside), error) ? beside : "";
}

Knowledge knowledgeOf(const std::string& name, const std::string& calibration = {}) {
  Knowledge knowledge = name.empty() || name == materialName ? Knowledge() : Knowledge(name, calibration);
  if (!knowledge.remark().empty()) std::cerr << "quorvane-play: " << knowledge.remark() << '\n';
  return knowledge;
}

void runProtocol(const std::string& program) {
  LineQueue lines(std::cin);
  Protocol(lines, std::cout, usualNetwork(program)).run();
}

void runBench(const std::string& program, Options options) {
  const std::string network = options.take("--network").value_or(usualNetwork(program));
  const std::string calibration = options.take("--calibration").value_or("");
  constexpr std::int64_t usualNodes = 50'000;
  const std::int64_t nodes = options.takeNumber("--nodes", usualNodes, 1);
  options.rest(0);
  std::cout << benchText(knowledgeOf(network, calibration), static_cast<std::uint64_t>(nodes));
}

// All but those of a list with commas.
std::uint32_t devicesWithout(const std::string& list) {
  std::uint32_t devices = allDevices;
  std::string_view left = list;
  while (!left.empty()) {
    const std::string_view name = left.substr(0, left.find(','));
    left.remove_prefix(std::min(name.size() + 1, left.size()));
    const auto* const found = std::ranges::find(deviceNames, name, [](const auto& one) { return one.first; });
    if (found == std::end(deviceNames)) throw WrongUsage("there is no device '" + std::string(name) + "'");
    devices &= ~std::uint32_t{found->second};
  }
  return devices;
}

Contender contender(const std::string& word, const std::string& without) {
  const auto behind = [&](std::string_view prefix) { return word.substr(prefix.size()); };
  constexpr std::string_view uncalibrated = "uncalibrated:";
  constexpr std::string_view alone = "alone:";
  const std::uint32_t devices = devicesWithout(without);
  if (word.starts_with(uncalibrated)) {
    Contender one{word, knowledgeOf(behind(uncalibrated)), devices};
    one.knowledge.leaveCalibration();
    return one;
  }
  if (word.starts_with(alone)) {
    Contender one{word, knowledgeOf(behind(alone)), devices};
    one.knowledge.leaveMaterial();
    return one;
  }
  return {word, knowledgeOf(word), devices};
}

// The file for the games; what holds something already is left alone.
std::ofstream opened(const std::string& name) {
  const fs::path path = pathOf(name);
  std::error_code error;
  if (fs::is_regular_file(path, error) && fs::file_size(path, error) > 0)
    throw std::runtime_error(inOneLine(name) + " exists; choose another name");
  std::ofstream file(path, std::ios::binary);
  if (!file) throw std::runtime_error(inOneLine(name) + " cannot be written");
  return file;
}

std::vector<Opening> openingsOf(Options& options) {
  constexpr std::int64_t usualPlies = 16;
  constexpr std::int64_t usualPairs = 100;
  const std::optional<std::string> file = options.take("--openings");
  const auto plies = static_cast<std::int32_t>(options.takeNumber("--plies", usualPlies, 0));
  const auto pairs = static_cast<std::size_t>(options.takeNumber("--pairs", 0, 0));
  std::vector<Opening> openings = file ? readOpenings(*file, plies) : usualOpenings();
  if (pairs > openings.size()) {
    throw std::runtime_error("there are " + std::to_string(openings.size()) + " openings, too few for " +
                             std::to_string(pairs) + " pairs; --openings can bring more");
  }
  const std::size_t wanted = pairs > 0 ? pairs : usualPairs;
  if (openings.size() > wanted) openings.resize(wanted);
  return openings;
}

void runMatch(Options options) {
  MatchPlan plan;
  constexpr std::int64_t usualNodes = 1000;
  constexpr std::int64_t mostJobs = 256;
  plan.nodes = static_cast<std::uint64_t>(options.takeNumber("--nodes", usualNodes, 1));
  plan.jobs = static_cast<std::int32_t>(std::min(options.takeNumber("--jobs", 1, 1), mostJobs));
  if (const auto bounds = options.takeTwo("--sprt")) {
    constexpr std::int64_t farthest = 1000;
    const std::int64_t low = Options::numberIn("--sprt", bounds->first, -farthest);
    const std::int64_t high = Options::numberIn("--sprt", bounds->second, -farthest);
    if (low >= high) throw WrongUsage("--sprt needs the lower number first");
    plan.test = {static_cast<double>(low), static_cast<double>(high)};
  }
  const bool json = options.takeFlag("--json");
  const std::optional<std::string> pgn = options.take("--pgn");
  const std::string withoutA = options.take("--without-a").value_or("");
  const std::string withoutB = options.take("--without-b").value_or("");
  Options others = options;
  for (const char* const later : {"--openings", "--plies", "--pairs"}) others.take(later);
  const std::vector<std::string> names = others.rest(2);

  const Contender first = contender(names[0], withoutA);
  const Contender second = contender(names[1], withoutB);
  plan.openings = openingsOf(options);
  std::ofstream games;
  if (pgn) games = opened(*pgn);
  const bool watched = errorsAreWatched();
  std::signal(SIGINT, [](int) { interrupted = true; });
  const MatchScore score = playMatch(first, second, plan, interrupted,
                                     [&](std::size_t index, const PlayedPair& pair, const MatchScore& soFar) {
                                       if (pgn)
                                         games << pairPgn(first, second, plan, index, pair) << std::flush;
                                       if (!watched) return;
                                       const EloInterval elo = eloInterval(soFar);
                                       std::cerr << '\r' << index + 1 << " of " << plan.openings.size()
                                                 << " pairs, Elo " << std::lround(elo.elo) << " ["
                                                 << std::lround(elo.low) << ", " << std::lround(elo.high)
                                                 << "]\033[K" << std::flush;
                                     });
  if (watched) std::cerr << "\r\033[K" << std::flush;
  std::cout << (json ? matchJson : matchText)(first.name, second.name, plan, score);
  if (pgn && !games.flush()) throw std::runtime_error(inOneLine(*pgn) + " cannot be written");
}

void run(std::span<const char* const> words) {
  const std::string program = words.empty() ? "" : words[0];
  if (words.size() < 2) return runProtocol(program);
  const std::string_view command = words[1];
  const Options options(words.subspan(2));
  if (command == "-h" || command == "--help") {
    std::cout << helpText;
  } else if (command == "--version") {
    std::cout << "quorvane-play " QUORVANE_VERSION "\n";
  } else if (command == "bench") {
    runBench(program, options);
  } else if (command == "match") {
    runMatch(options);
  } else {
    throw WrongUsage("there is no command '" + std::string(command) + "'; --help tells how it is used");
  }
}

int tell(ExitStatus status, const std::string& fault) {
  std::cerr << "quorvane-play: " << inOneLine(fault) << '\n';
  return status;
}

}  // namespace

int runCommandLine(std::span<const char* const> words) {
  try {
    run(words);
    std::cout.flush();
    return std::cout ? done : tell(failed, "standard output cannot be written");
  } catch (const WrongUsage& fault) {
    return tell(wrongUsage, fault.what());
  } catch (const std::exception& fault) {
    return tell(failed, fault.what());
  }
}

}  // namespace quorvane::play

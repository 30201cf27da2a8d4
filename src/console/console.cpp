#include "console/console.h"

#include <chrono>
#include <cstdint>
#include <fstream>
#include <iostream>
#include <string>

#include "files/file_name.h"
#include "learning/learner.h"
#include "pgn/pgn_database.h"

namespace quorvane {

namespace {

constexpr char banner[] =
    "---------------------------------------------------------\n"
    "          Quorvane - Learning Utility\n"
    "---------------------------------------------------------\n"
    "Version: i4\n\n"
    "Tip: Consult the file readme.txt for a short introduction\n"
    "     to the Quorvane learning utility.\n"
    "---------------------------------------------------------\n\n";

// Reads the next word; standard input, tied to standard output, shows the prompt first. At the end of the
// input the answer is `atEnd`.
void ask(const char* prompt, const char* atEnd, std::string& answer) {
  std::cout << prompt;
  if (!(std::cin >> answer)) answer = atEnd;
}

std::int64_t milliseconds() {
  using std::chrono::duration_cast;
  return duration_cast<std::chrono::milliseconds>(std::chrono::steady_clock::now().time_since_epoch())
      .count();
}

void greet() {
  std::cout << "\n" << std::flush << banner;
}

// Runs `phases`, and tells how long they took.
template <typename Phases>
void timed(Phases&& phases) {
  const std::int64_t start = milliseconds();
  phases();
  const std::int64_t elapsed = milliseconds() - start;
  std::cout << "Time: " << static_cast<double>(elapsed) * 0.001 << " seconds\n\n";
}

// Up to the patterns, which are all that the fit needs.
void findPatterns(Learner& learner, PgnDatabase& database) {
  learner.collectSamples(database);
  database.clear();  // the samples are all that the later phases need
  learner.searchAllPatterns();
}

// Empty if there is none.
std::string reasonNotSaved(Saved saved, const std::string& network) {
  if (saved == Saved::yes) return {};
  const char* const reason = saved == Saved::no ? ": there is no room for it" : ": it may not be written";
  return inQuotes(network) + " was not written" + reason;
}

}  // namespace

int runConsole() {
  greet();
  Learner learner;
  PgnDatabase database;
  std::string answer;
  ask("Enter the name of a pgn file or type 'quit' to exit: ", "quit", answer);
  if (answer == "quit") return 0;
  do {
    database.load(answer);
    ask("Load another file? ('somefile.pgn' or 'no'): ", "no", answer);
  } while (answer != "no");
  std::cout << "\n";
  timed([&] {
    findPatterns(learner, database);
    learner.fitAllWeights();
  });
  return 0;
}

int learnFrom(const CommandLine& line) {
  greet();
  Network::useFile(line.network);
  Learner learner;
  PgnDatabase database;
  for (const std::string& name : line.files) {
    std::ifstream file(pathOf(name), std::ios::binary);
    if (!file) return refuse(wrongUsage, inQuotes(name) + " may not be read");
    database.load(file);
  }
  std::cout << "\n";

  std::string fault;
  timed([&] {
    findPatterns(learner, database);
    fault = Learner::foundPatterns() ? reasonNotSaved(learner.fitAllWeights(), line.network)
                                     : "nothing was learned, no game gave anything to learn from";
  });
  return fault.empty() ? learned : refuse(nothingLearned, fault);
}

}  // namespace quorvane

#include "console/console.h"

#include <chrono>
#include <cstdint>
#include <iostream>
#include <string>

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

}  // namespace

int runConsole() {
  std::cout << "\n" << std::flush << banner;
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

  const std::int64_t start = milliseconds();
  learner.collectSamples(database);
  database.clear();  // the samples are all that the later phases need
  learner.searchAllPatterns();
  learner.fitAllWeights();
  const std::int64_t elapsed = milliseconds() - start;
  std::cout << "Time: " << static_cast<double>(elapsed) * 0.001 << " seconds\n\n";
  return 0;
}

}  // namespace quorvane

#include <gtest/gtest.h>

#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <sstream>

#include "support/files.h"
#include "support/temporary_folder.h"

namespace quorvane {
namespace {

namespace fs = std::filesystem;

// The 64-bit FNV-1a hash, to tell whether a network.dat is the one expected.
std::string fingerprint(const std::string& bytes) {
  std::uint64_t hash = 0xcbf29ce484222325U;
  for (const char byte : bytes) hash = (hash ^ static_cast<unsigned char>(byte)) * 0x100000001b3U;
  std::ostringstream text;
  text << bytes.size() << " bytes, FNV-1a " << std::hex << hash;
  return text.str();
}

// Runs the whole program in a folder of its own, as somebody at the prompts would, and compares with
// console/expected/NAME.txt. With QUORVANE_APPROVE set in the environment it writes that file instead.
class Console : public ::testing::Test {
 protected:
  std::string run(const std::string& answers) {
    writeFile("answers", answers);
    const auto start = std::chrono::steady_clock::now();
    EXPECT_EQ(std::system("\"" QUORVANE_PROGRAM "\" <answers >output 2>errors"), 0);
    wholeRun = std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
    EXPECT_EQ(readFile("errors"), "");
    std::string printed = readFile("output");
    const std::size_t time = printed.find("Time: ");
    if (time == std::string::npos) return printed;
    learning = std::stod(printed.substr(time + 6));
    EXPECT_LE(learning, wholeRun);
    printed.replace(time, printed.find(" seconds", time) - time, "Time: #");
    return printed;
  }

  void expectRun(const std::string& name, const std::string& answers) {
    std::string text = run(answers);
    if (fs::exists("network.dat")) text += "network.dat: " + fingerprint(readFile("network.dat")) + "\n";
    const fs::path expected = projectFile("tests/console/expected/" + name + ".txt");
    if (std::getenv("QUORVANE_APPROVE") != nullptr) writeFile(expected, text);
    EXPECT_EQ(text, readFile(expected));
  }

  TemporaryFolder folder;
  double wholeRun = 0.0;  // seconds, of the last run
  double learning = 0.0;  // as it printed them
};

TEST_F(Console, LearnsFromGamesUntilTheAnswerIsNo) {
  writeFile("few.pgn", exampleGames(40));
  expectRun("learn", "\n\nfew.pgn missing.pgn\nquit no and nothing else is read\n");
  EXPECT_GT(learning, wholeRun / 10) << "hardly anything else takes time";
}

TEST_F(Console, QuitAtTheFirstPromptLeavesEverythingAlone) {
  expectRun("quit", "quit\nfew.pgn no\n");
}

TEST_F(Console, EndOfInputIsQuitAtTheFirstPromptAndNoAtTheSecond) {
  expectRun("quit", "");
  expectRun("no-games", "no");
}

}  // namespace
}  // namespace quorvane

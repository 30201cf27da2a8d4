#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>

#include "support/temporary_folder.h"

namespace quorvane {
namespace {

namespace fs = std::filesystem;

std::string readFile(const fs::path& name) {
  std::ifstream file(name, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

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
  static std::string run(const std::string& answers) {
    std::ofstream("answers") << answers;
    EXPECT_EQ(std::system("\"" QUORVANE_PROGRAM "\" <answers >output 2>errors"), 0);
    EXPECT_EQ(readFile("errors"), "");
    std::string printed = readFile("output");
    const std::size_t time = printed.find("Time: ");
    if (time != std::string::npos) printed.replace(time, printed.find(" seconds", time) - time, "Time: #");
    return printed;
  }

  static void expectRun(const std::string& name, const std::string& answers) {
    std::string text = run(answers);
    if (fs::exists("network.dat")) text += "network.dat: " + fingerprint(readFile("network.dat")) + "\n";
    const fs::path expected = fs::path(QUORVANE_TEST_SOURCE_DIR) / "console/expected" / (name + ".txt");
    if (std::getenv("QUORVANE_APPROVE") != nullptr) std::ofstream(expected) << text;
    EXPECT_EQ(text, readFile(expected));
  }

  static void copyExamples(std::size_t games) {
    const std::string all = readFile(fs::path(QUORVANE_TEST_SOURCE_DIR) / "../examples/games.pgn");
    std::size_t end = 0;
    for (std::size_t game = 0; game < games; ++game) end = all.find("[Event ", end + 1);
    std::ofstream("few.pgn") << all.substr(0, end);
  }

  TemporaryFolder folder;
};

TEST_F(Console, LearnsFromGamesUntilTheAnswerIsNo) {
  copyExamples(40);
  expectRun("learn", "\n\nfew.pgn missing.pgn\nquit no and nothing else is read\n");
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

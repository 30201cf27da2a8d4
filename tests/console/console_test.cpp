#include <gtest/gtest.h>
#include <sys/stat.h>

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

// Runs the whole program in a folder of its own.
class Console : public ::testing::Test {
 protected:
  // Gives the status; leaves `printed`, the time as # in it, and `errors`.
  int run(const std::string& arguments) {
    const auto start = std::chrono::steady_clock::now();
    const int status = std::system(("\"" QUORVANE_PROGRAM "\" " + arguments + " >output 2>errors").c_str());
    wholeRun = std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
    printed = readFile("output");
    errors = readFile("errors");
    const std::size_t time = printed.find("Time: ");
    if (time != std::string::npos) {
      learning = std::stod(printed.substr(time + 6));
      EXPECT_LE(learning, wholeRun);
      printed.replace(time, printed.find(" seconds", time) - time, "Time: #");
    }
    return WEXITSTATUS(status);
  }

  // As somebody at the prompts, and compares with console/expected/NAME.txt. With QUORVANE_APPROVE set in the
  // environment it writes that file instead.
  void expectRun(const std::string& name, const std::string& answers) {
    writeFile("answers", answers);
    EXPECT_EQ(run("<answers"), 0);
    EXPECT_EQ(errors, "");
    std::string text = printed;
    if (fs::exists("network.dat")) text += "network.dat: " + fingerprint(readFile("network.dat")) + "\n";
    const fs::path expected = projectFile("tests/console/expected/" + name + ".txt");
    if (std::getenv("QUORVANE_APPROVE") != nullptr) writeFile(expected, text);
    EXPECT_EQ(text, readFile(expected));
  }

  // For this reason, without a change to the network.
  void expectRefusal(int status, const std::string& arguments, const std::string& reason) {
    writeFile("network.dat", "earlier");
    EXPECT_EQ(run(arguments), status) << arguments;
    EXPECT_EQ(errors, "quorvane-learn: " + reason + "\n");
    EXPECT_EQ(printed.empty(), status == 2) << arguments;
    EXPECT_TRUE(readFile("network.dat") == "earlier") << arguments;
  }

  TemporaryFolder folder;
  std::string printed;
  std::string errors;
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

TEST_F(Console, LearnsFromFilesNamedWhatItLearnsFromThoseTyped) {
  writeFile("-few.pgn", exampleGames(40));
  writeFile("answers", "./-few.pgn -few.pgn no");
  run("<answers");
  const std::string asked = printed;
  const std::string learned = readFile("network.dat");
  fs::copy_file("-few.pgn", "quit\t no");
  const std::size_t questions = asked.find("Enter the name");
  for (const char* arguments : {"'quit\t no' -- -few.pgn", "'quit\t no' /dev/stdin <./-few.pgn"}) {
    fs::remove("network.dat");
    EXPECT_EQ(run(arguments), 0) << arguments;
    EXPECT_EQ(printed, asked.substr(0, questions) + asked.substr(asked.find('\n', questions)));
    EXPECT_TRUE(readFile("network.dat") == learned && errors.empty()) << arguments;
  }
  // A network of its own, with a pattern of type 0 to keep.
  const auto number = [](char low) { return std::string{low, 0, 0, 0}; };
  for (const char* option : {"--network=other", "--network other"}) {
    writeFile("other", number(1) + number(1) + number(0) + number(0) + number(1));
    EXPECT_EQ(run(std::string("./-few.pgn ./-few.pgn ") + option), 0);
    EXPECT_EQ(readFile("other").size(), learned.size() + 16);
    EXPECT_TRUE(readFile("network.dat") == learned);
    EXPECT_EQ(printed.find("Error"), std::string::npos);
  }
}

TEST_F(Console, WhatCannotBeReadIsRefusedBeforeAnythingStarts) {
  writeFile("few.pgn", exampleGames(3));
  fs::create_directory("a folder");
  writeFile("other.pgn", exampleGames(1));
  EXPECT_EQ(mkfifo("pipe", 0600), 0);
  fs::create_symlink("loop", "loop");  // which may not be read by anybody
  expectRefusal(2, "few.pgn 'my\ngmaes.pgn'", "there is no file 'my?gmaes.pgn'");
  expectRefusal(2, "'a folder' few.pgn", "'a folder' is a folder");
  expectRefusal(2, "few.pgn loop", "'loop' may not be read");
  expectRefusal(2, "few.pgn --network 'a folder'", "'a folder' is a folder");
  expectRefusal(2, "few.pgn --network loop", "'loop' may not be read");
  expectRefusal(2, "few.pgn --network other.pgn", "'other.pgn' is no network, and would be written over");
  expectRefusal(2, "few.pgn --network pipe", "'pipe' is a pipe, which cannot be a network");
  expectRefusal(2, "./network.dat", "'./network.dat' is the network, and would be written over");
  for (const char* arguments : {"few.pgn --network", "few.pgn --network=", "--network '' few.pgn"})
    expectRefusal(2, arguments, "--network needs a file");
  expectRefusal(2, "few.pgn --quick", "there is no option '--quick'");
  for (const char* arguments : {"--", "--network network.dat"})
    expectRefusal(2, arguments, "name a file of games; --help tells how");
}

TEST_F(Console, WhereNothingIsLearnedOrNothingCanBeWrittenTheNetworkStays) {
  writeFile("few.pgn", exampleGames(3));
  writeFile("nothing.pgn", "1. e4 e5 2. Ke4 1-0 [White \"B\"] 1. d4 d5 2. c4 e6 *");
  expectRefusal(1, "nothing.pgn", "nothing was learned, no game gave anything to learn from");
  expectRefusal(1, "nothing.pgn --network missing",
                "nothing was learned, no game gave anything to learn from");
  EXPECT_FALSE(fs::exists("missing"));
  expectRefusal(1, "few.pgn --network no/folder", "'no/folder' was not written: it may not be written");
  EXPECT_NE(printed.find("\nError: no/folder file not found.\n"), std::string::npos);
  expectRefusal(1, "few.pgn --network /dev/full", "'/dev/full' was not written: there is no room for it");
}

TEST_F(Console, HelpAndTheVersionAreAllThatIsPrinted) {
  EXPECT_EQ(run("missing.pgn --help"), 0);
  EXPECT_TRUE(printed.starts_with("   quorvane-learn [")) << printed;
  EXPECT_EQ(printed.find("===\n"), std::string::npos) << printed;
  const std::string help = printed;
  EXPECT_EQ(run("-h"), 0);
  EXPECT_EQ(printed, help);
  EXPECT_EQ(run("--version"), 0);
  EXPECT_EQ(printed, "quorvane-learn 4\n");
}

}  // namespace
}  // namespace quorvane

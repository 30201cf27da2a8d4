#ifndef QUORVANE_TESTS_INSPECT_INSPECT_FIXTURE_H_
#define QUORVANE_TESTS_INSPECT_INSPECT_FIXTURE_H_

#include <gtest/gtest.h>
#include <sys/wait.h>

#include <filesystem>
#include <fstream>
#include <string>
#include <utility>

#include "inspect/position/position.h"
#include "network/network_table.h"
#include "support/files.h"
#include "support/temporary_folder.h"

namespace quorvane::inspect {

inline std::string textOfFile(const std::string& name) {
  return readFile(name);
}

// A folder of its own, with few.pgn in it; leaves the network table as it was.
class InspectTest : public ::testing::Test {
 protected:
  InspectTest() : tableBefore(std::exchange(networkTable, {})) { writeFile("few.pgn", exampleGames(60)); }
  ~InspectTest() override { networkTable = std::move(tableBefore); }

  // Lets the utility learn few.pgn into network.dat; gives what it prints.
  static std::string learn() {
    EXPECT_EQ(std::system("echo few.pgn no | \"" QUORVANE_PROGRAM "\" >learned"), 0);
    return textOfFile("learned");
  }

  struct Outcome {
    int status;
    std::string output;
    std::string errors;
  };
  // With the arguments as a shell reads them, behind what else the shell is to do first.
  static Outcome inspect(const std::string& arguments, const std::string& before = "") {
    const std::string command = before + "\"" QUORVANE_INSPECT "\" " + arguments + " >output 2>errors";
    const int status = std::system(command.c_str());
    return {WEXITSTATUS(status), textOfFile("output"), textOfFile("errors")};
  }

 private:
  TemporaryFolder folder;
  NetworkTable tableBefore;
};

}  // namespace quorvane::inspect

#endif  // QUORVANE_TESTS_INSPECT_INSPECT_FIXTURE_H_

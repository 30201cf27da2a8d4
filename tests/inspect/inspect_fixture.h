#ifndef QUORVANE_TESTS_INSPECT_INSPECT_FIXTURE_H_
#define QUORVANE_TESTS_INSPECT_INSPECT_FIXTURE_H_

#include <gtest/gtest.h>
#include <sys/wait.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <utility>

#include "inspect/position.h"
#include "network/network_table.h"
#include "support/temporary_folder.h"

namespace quorvane {

inline std::string textOfFile(const std::string& name) {
  std::ifstream file(name, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

// A folder of its own, with few.pgn in it; leaves the network table as it was.
class InspectTest : public ::testing::Test {
 protected:
  InspectTest() : tableBefore(std::exchange(networkTable, {})) {
    const std::string all = textOfFile(QUORVANE_TEST_SOURCE_DIR "/../examples/games.pgn");
    std::size_t end = 0;
    for (int game = 0; game < 60; ++game) end = all.find("[Event ", end + 1);
    std::ofstream("few.pgn") << all.substr(0, end);
  }
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
  static Outcome inspect(const std::string& arguments) {
    const int status = std::system(("\"" QUORVANE_INSPECT "\" " + arguments + " >output 2>errors").c_str());
    return {WEXITSTATUS(status), textOfFile("output"), textOfFile("errors")};
  }

 private:
  TemporaryFolder folder;
  NetworkTable tableBefore;
};

}  // namespace quorvane

#endif  // QUORVANE_TESTS_INSPECT_INSPECT_FIXTURE_H_

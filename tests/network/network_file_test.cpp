#include "network/network_file.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "learning/learning_fixture.h"
#include "support/files.h"

namespace quorvane {
namespace {

namespace fs = std::filesystem;

class NetworkFile : public LearningTest {
 protected:
  // What is printed while an empty table is filled from a file of these bytes.
  std::string load(const std::string& bytes) {
    writeFile(networkFileName, bytes);
    clearNetworkTable();
    CapturedOutput output;
    Network::loadNetwork();
    return output.str();
  }
  std::string save() {
    CapturedOutput output;
    Network::saveNetwork();
    return output.str();
  }
};

constexpr char wrongVersion[] = "Error: wrong version of the network.dat file!\n";
constexpr std::uint32_t notANumber = 0x7fc00001;

TEST_F(NetworkFile, WhatWasSavedLoadsAndSavesAsTheSameBytes) {
  EXPECT_EQ(load(networkBytes({1})), "");
  writeFile(networkFileName, std::string(5000, 'o'));
  EXPECT_EQ(save(), "");
  const std::string empty = readFile(networkFileName);
  EXPECT_EQ(empty.size(), 1092U);
  EXPECT_EQ(empty.substr(0, 40), networkBytes({1, 0, 0, 0, 0, 1, 0, 0, 1, 1}));
  EXPECT_EQ(empty.substr(1084), networkBytes({0, 2}));

  load(networkBytes({1, 0, 0,          3, 0, 1, 7,  5, 2, notANumber, 2,
                     7, 0, 0x7f800000, 1, 0, 1, 13, 9, 8, 0x80000000, 0xffffffff}));
  EXPECT_EQ(networkTable[7][rookKind].size(), 2U);
  EXPECT_EQ(networkTable[13][rookKind].at(0).skip, -1);
  save();
  const std::string saved = readFile(networkFileName);
  EXPECT_EQ(saved.size(), 1092U + 3 * 16);
  EXPECT_EQ(load(saved), "");
  EXPECT_EQ(encodeNetwork(networkTable), saved);
}

TEST_F(NetworkFile, ReadsOddRecordsAsFarAsTheyGo) {
  const std::string node = networkBytes({6, 2, 0x3f800000, 1});
  EXPECT_EQ(load(networkBytes({1}) + node), "");  // before any selection
  EXPECT_EQ(networkTable[0][pawnKind].size(), 1U);
  EXPECT_EQ(load(networkBytes({1, 0, 77}) + node), "");  // an unknown code, then a head
  EXPECT_EQ(nodeCount(), 1U);
  EXPECT_EQ(load(networkBytes({1, 0, 0, 6}) + node + networkBytes({0, 1, 3}) + node +
                 networkBytes({0, 0, 5}) + node),
            "");
  EXPECT_EQ(nodeCount(), 1U);  // dropped until the kind is valid again
  EXPECT_EQ(networkTable[3][kingKind].size(), 1U);
  EXPECT_EQ(load(networkBytes({1, 0, 1, 0xffffffff}) + node), "");
  EXPECT_EQ(nodeCount(), 0U);
  EXPECT_EQ(load(networkBytes({1}) + node + networkBytes({0, 2}) + node), "");  // behind the end
  EXPECT_EQ(nodeCount(), 1U);
  const std::string twoNodes = networkBytes({1, 6, 2, 0x3f800000, 1, 6, 2, 0x3f800000, 1});
  for (std::size_t cut = 4; cut < 20; ++cut) {
    EXPECT_EQ(load(twoNodes.substr(0, 16 + cut)), "");
    EXPECT_EQ(nodeCount(), 1U) << cut;
  }
}

TEST_F(NetworkFile, ReportsWhatItCannotRead) {
  for (const std::string& bytes : {std::string(), networkBytes({2}), networkBytes({1}).substr(0, 3)}) {
    EXPECT_EQ(load(bytes), wrongVersion);
  }
  fs::remove("network.dat");
  CapturedOutput missing;
  Network::loadNetwork();
  EXPECT_EQ(missing.str(), "Error: network.dat file not found!\n");
  fs::create_directory("network.dat");
  CapturedOutput directory;
  Network::loadNetwork();
  EXPECT_EQ(directory.str(), wrongVersion);
  EXPECT_EQ(save(), "Error: network.dat file not found.\n");
}

}  // namespace
}  // namespace quorvane

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "learning/learning_fixture.h"

namespace quorvane {
namespace {

namespace fs = std::filesystem;

class NetworkFile : public LearningTest {
 protected:
  static void write(const std::string& bytes, const fs::path& name = "network.dat") {
    std::ofstream(name, std::ios::binary) << bytes;
  }
  static std::string read(const fs::path& name = "network.dat") {
    std::ifstream file(name, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
  }
  static std::string values(std::initializer_list<std::uint32_t> list) {
    std::string bytes;
    for (const std::uint32_t value : list) {
      for (int shift = 0; shift < 32; shift += 8) bytes += static_cast<char>(value >> shift);
    }
    return bytes;
  }

  // What is printed while an empty table is filled from a file of these bytes.
  std::string load(const std::string& bytes) {
    write(bytes);
    for (NetworkRow& row : networkTable) row = {};
    CapturedOutput output;
    Network::loadNetwork();
    return output.str();
  }
  std::string save() {
    CapturedOutput output;
    Network::saveNetwork();
    return output.str();
  }
  static std::size_t nodes() {
    std::size_t count = 0;
    for (const NetworkRow& row : networkTable) {
      for (const NodeList& list : row) count += list.size();
    }
    return count;
  }
  static std::size_t filesHere() {
    return static_cast<std::size_t>(std::distance(fs::directory_iterator("."), fs::directory_iterator{}));
  }
};

constexpr char wrongVersion[] = "Error: wrong version of the network.dat file!\n";
constexpr std::uint32_t notANumber = 0x7fc00001;

TEST_F(NetworkFile, EmptyTableTakes1092Bytes) {
  EXPECT_EQ(load(values({1})), "");
  EXPECT_EQ(save(), "");
  const std::string bytes = read();
  EXPECT_EQ(bytes.size(), 1092U);
  EXPECT_EQ(bytes.substr(0, 40), values({1, 0, 0, 0, 0, 1, 0, 0, 1, 1}));
  EXPECT_EQ(bytes.substr(1084), values({0, 2}));
}

TEST_F(NetworkFile, WhatWasSavedLoadsAndSavesAsTheSameBytes) {
  load(values({1, 0, 0,          3, 0, 1, 7,  5, 2, notANumber, 2,
               7, 0, 0x7f800000, 1, 0, 1, 13, 9, 8, 0x80000000, 0xffffffff}));
  EXPECT_EQ(networkTable[7][rookKind].size(), 2U);
  EXPECT_EQ(networkTable[13][rookKind].at(0).skip, -1);
  save();
  const std::string saved = read();
  EXPECT_EQ(saved.size(), 1092U + 3 * 16);
  EXPECT_EQ(load(saved), "");
  save();
  EXPECT_EQ(read(), saved);
}

TEST_F(NetworkFile, ReadsOddRecordsAsFarAsTheyGo) {
  const std::string node = values({6, 2, 0x3f800000, 1});
  EXPECT_EQ(load(values({1}) + node), "");  // before any selection
  EXPECT_EQ(networkTable[0][pawnKind].size(), 1U);
  EXPECT_EQ(load(values({1, 0, 77}) + node), "");  // an unknown code, then a head
  EXPECT_EQ(nodes(), 1U);
  EXPECT_EQ(load(values({1, 0, 0, 6}) + node + values({0, 1, 3}) + node + values({0, 0, 5}) + node), "");
  EXPECT_EQ(nodes(), 1U);  // dropped until the kind is valid again
  EXPECT_EQ(networkTable[3][kingKind].size(), 1U);
  EXPECT_EQ(load(values({1, 0, 1, 0xffffffff}) + node), "");
  EXPECT_EQ(nodes(), 0U);
  EXPECT_EQ(load(values({1}) + node + values({0, 2}) + node), "");  // behind the end
  EXPECT_EQ(nodes(), 1U);
  const std::string twoNodes = values({1, 6, 2, 0x3f800000, 1, 6, 2, 0x3f800000, 1});
  for (std::size_t cut = 4; cut < 20; ++cut) {
    EXPECT_EQ(load(twoNodes.substr(0, 16 + cut)), "");
    EXPECT_EQ(nodes(), 1U) << cut;
  }
}

TEST_F(NetworkFile, ReportsWhatItCannotRead) {
  for (const std::string& bytes : {std::string(), values({2}), values({1}).substr(0, 3)}) {
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

TEST_F(NetworkFile, SavingKeepsLinksAndPermissionsAndLeavesNothingElse) {
  fs::create_directory("elsewhere");
  write("old", "elsewhere/real.dat");
  fs::permissions("elsewhere/real.dat", fs::perms::owner_read | fs::perms::owner_write);
  fs::create_symlink("elsewhere/real.dat", "network.dat");
  write("left by a killed run", "elsewhere/real.dat.saving");
  EXPECT_EQ(save(), "");
  EXPECT_TRUE(fs::is_symlink("network.dat"));
  EXPECT_GE(fs::file_size("elsewhere/real.dat"), 1092U);
  EXPECT_EQ(fs::status("elsewhere/real.dat").permissions(), fs::perms::owner_read | fs::perms::owner_write);
  EXPECT_FALSE(fs::exists("elsewhere/real.dat.saving"));
  EXPECT_EQ(filesHere(), 2U);

  fs::remove("elsewhere/real.dat");  // now the link leads nowhere
  EXPECT_EQ(save(), "");
  EXPECT_TRUE(fs::is_symlink("network.dat"));
  EXPECT_GE(fs::file_size("elsewhere/real.dat"), 1092U);
}

TEST_F(NetworkFile, WhereNoNewFileCanBeMadeTheOldOneIsWrittenInPlace) {
  write("old");
  fs::create_directories("network.dat.saving/in the way");
  EXPECT_EQ(save(), "");
  EXPECT_GE(fs::file_size("network.dat"), 1092U);
}

}  // namespace
}  // namespace quorvane

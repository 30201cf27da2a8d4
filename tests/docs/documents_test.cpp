// The worked examples of the documents, read from the documents.

#include <cstdlib>
#include <iomanip>

#include "learning/learning_fixture.h"
#include "network/network_file.h"
#include "support/board_fixture.h"
#include "support/files.h"

namespace quorvane {
namespace {

using Cells = std::vector<std::string>;

std::string document(const std::string& name) {
  return readFile(projectFile(name));
}

// The rows below a table's head, which begins as told; cells without the signs and blanks around them.
std::vector<Cells> tableBelow(const std::string& text, const std::string& head) {
  std::istringstream lines(text.substr(text.find(head)));
  std::string line;
  std::getline(lines, line);
  std::getline(lines, line);  // the rule below the head
  std::vector<Cells> rows;
  while (std::getline(lines, line) && line.starts_with("|")) {
    std::istringstream parts(line.substr(1));
    Cells& row = rows.emplace_back();
    for (std::string part; std::getline(parts, part, '|');) {
      const std::size_t first = std::min(part.find_first_not_of(" *`"), part.size());
      row.push_back(part.substr(first, part.find_last_not_of(" *`") + 1 - first));
    }
  }
  return rows;
}

// The text of the fenced block behind a mark.
std::string blockBehind(const std::string& text, const std::string& mark) {
  const std::size_t fence = text.find("```", text.find(mark));
  const std::size_t begin = text.find('\n', fence) + 1;
  return text.substr(begin, text.find("```", begin) - begin);
}

std::string hexadecimal(std::uint32_t word) {
  std::ostringstream text;
  text << std::hex << std::setw(8) << std::setfill('0') << word;
  return text.str();
}

TEST_F(BoardTest, ConfigurationWordDocumentTellsTheWordsOfItsPosition) {
  setUp("3qk2r/5ppp/2np4/2b5/4P3/3B1N2/4QPPP/4K2R w");
  EXPECT_TRUE(play("O-O O-O Qd1 Re8"));
  describe();
  std::size_t pieces = 0;
  for (const Cells& row : tableBelow(document("docs/configuration-word.md"), "| White | | | Black |")) {
    for (const std::size_t column : {0U, 3U}) {
      const Piece& piece = at(row[column].substr(row[column].size() - 2));
      std::string bits;
      for (std::uint32_t bit = 0; bit < 32; ++bit)
        if ((piece.configuration >> bit & 1) != 0) bits.append(" ").append(std::to_string(bit));
      EXPECT_EQ(hexadecimal(piece.configuration) + bits, row[column + 1] + " " + row[column + 2])
          << row[column];
      ++pieces;
    }
  }
  EXPECT_EQ(pieces, squareCount - std::ranges::count(board, EmptySquare) + 1U);
}

// The bytes of the dump behind "84 bytes", whose lines are an offset, values, and words about them.
std::string exampleNetwork(const std::string& text) {
  std::istringstream lines(blockBehind(text, "84 bytes"));
  std::string bytes;
  for (std::string line, word; std::getline(lines, line);) {
    std::istringstream words(line);
    words >> word;
    EXPECT_EQ(std::stoul(word, nullptr, 16), bytes.size());
    while (words >> word && word.find_first_not_of("0123456789abcdef") == std::string::npos) {
      for (std::size_t digit = 0; digit < 8; digit += 2)
        bytes += static_cast<char>(std::stoi(word.substr(digit, 2), nullptr, 16));
    }
  }
  return bytes;
}

TEST_F(LearningTest, NetworkFileDocumentTellsWhatItsExampleHolds) {
  const std::string text = document("docs/network-file.md");
  writeFile(networkFileName, exampleNetwork(text));
  {
    CapturedOutput quiet;
    Network::loadNetwork();
    Network::saveNetwork();
  }
  EXPECT_EQ(nodeCount(), 3U);
  for (const PatternNode& node : networkTable[1][pawnKind])
    EXPECT_NE(text.find("mask " + hexadecimal(node.mask) + "  childBits " + hexadecimal(node.childBits)),
              std::string::npos);
  EXPECT_NE(text.find("writes one of " + std::to_string(readFile(networkFileName).size()) + " bytes"),
            std::string::npos);
  if (std::system("python3 -c '' >/dev/null 2>&1") != 0) GTEST_SKIP() << "there is no python3";
  const std::string call = blockBehind(text, "So `value_of_position` gives 6.75");
  writeFile("example.py", blockBehind(text, "not a pawn") + "print(" + call + ")\n");
  EXPECT_EQ(std::system("python3 example.py >printed"), 0);
  EXPECT_EQ(readFile("printed"), "6.75\n");
}

using GameRoadDocument = LearningTest;

TEST_F(GameRoadDocument, SamplesAreThoseOfItsTable) {
  const std::string text = document("docs/game-road.md");
  writeFile("game.pgn", blockBehind(text, "The example is this game"));
  PgnDatabase database;
  database.load("game.pgn");
  CapturedOutput quiet;
  collectSamples(database);
  // The table leaves out some of the positions that are taken.
  std::size_t seen[positionTypeCount] = {};
  for (const Cells& row : tableBelow(text, "| Depth |")) {
    if (row[4] != "yes") continue;
    const std::vector<std::int32_t> all = targets(std::stoi(row[5]));
    std::size_t& next = seen[std::stoi(row[5])];
    while (next < all.size() && all[next] != std::stoi(row[6])) ++next;
    ASSERT_LT(next++, all.size()) << row[0];
  }
  EXPECT_NE(text.find("left out; here five of the nineteen positions"), std::string::npos);
  EXPECT_EQ(sampleSets[11].size() + sampleSets[12].size() + sampleSets[13].size(), 19U - 5U);
}

TEST(ExamplesDocument, ItsCommandGivesTheBytesOfTheGames) {
  const std::string text = document("examples/README.md");
  const std::size_t begin = text.find("\n    (") + 5;
  const std::string command = text.substr(begin, text.find("> ", begin) - begin);
  const TemporaryFolder folder;
  writeFile("command", "exec >games.pgn; cd '" QUORVANE_BUILD_DIR "'\n" + command);
  EXPECT_EQ(std::system("sh command"), 0);
  EXPECT_TRUE(readFile("games.pgn") == document("examples/games.pgn")) << command;
}

}  // namespace
}  // namespace quorvane

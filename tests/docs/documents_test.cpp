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

class ConfigurationWordDocument : public BoardTest {
 protected:
  void SetUp() override {
    setUp("3qk2r/5ppp/2np4/2b5/4P3/3B1N2/4QPPP/4K2R w");
    EXPECT_TRUE(play("O-O O-O Qd1 Re8"));
    describe();
  }
  const std::string text = document("docs/configuration-word.md");
};

TEST_F(ConfigurationWordDocument, WordsOfThePositionAreThoseOfItsTable) {
  std::size_t pieces = 0;
  for (const Cells& row : tableBelow(text, "| White | | | Black |")) {
    for (const std::size_t column : {0U, 3U}) {
      const Piece& piece = at(row[column].substr(row[column].size() - 2));
      std::string bits;
      for (std::uint32_t bit = 0; bit < 32; ++bit)
        if ((piece.configuration >> bit & 1) != 0) bits.append(" ").append(std::to_string(bit));
      EXPECT_EQ(hexadecimal(piece.configuration), row[column + 1]) << row[column];
      EXPECT_EQ(bits, std::string(" ").append(row[column + 2])) << row[column];
      ++pieces;
    }
  }
  EXPECT_EQ(pieces, squareCount - std::ranges::count(board, EmptySquare) + 1U);
}

TEST_F(ConfigurationWordDocument, FeaturesAddUpToTheirWords) {
  const std::string head = "| White rook f1 |";
  const std::vector<Cells> rows = tableBelow(text, head);
  for (std::size_t column = 0; column < 8; column += 2) {
    std::uint32_t sum = 0;
    for (const Cells& row : rows) {
      if (&row != &rows.back() && !row[column + 1].empty())
        sum += static_cast<std::uint32_t>(std::stoul(row[column + 1], nullptr, 16));
    }
    EXPECT_EQ(hexadecimal(sum), rows.back()[column + 1]) << column;
    EXPECT_NE(text.find(rows.back()[column + 1], text.find("| White | | | Black |")), std::string::npos);
  }
}

class NetworkFileDocument : public LearningTest {
 protected:
  // Writes the example and loads it; gives its bytes.
  std::string load() {
    std::istringstream lines(blockBehind(text, "84 bytes"));
    std::string bytes;
    for (std::string line, offset; std::getline(lines, line);) {
      std::istringstream words(line);
      words >> offset;
      EXPECT_EQ(std::stoul(offset, nullptr, 16), bytes.size());
      // Values, and behind them words about them.
      for (std::string word;
           words >> word && word.find_first_not_of("0123456789abcdef") == std::string::npos;) {
        for (std::size_t digit = 0; digit < 8; digit += 2)
          bytes += static_cast<char>(std::stoi(word.substr(digit, 2), nullptr, 16));
      }
    }
    writeFile(networkFileName, bytes);
    CapturedOutput quiet;
    Network::loadNetwork();
    return bytes;
  }
  const std::string text = document("docs/network-file.md");
};

TEST_F(NetworkFileDocument, ExampleHoldsTheNodesThatItNames) {
  const std::string bytes = load();
  EXPECT_EQ(bytes.size(), 84U);
  EXPECT_EQ(nodeCount(), 3U);
  std::size_t at = 0;
  for (const PatternNode& node : networkTable[1][pawnKind]) {
    std::istringstream words(text.substr(text.find("mask 0", at)));
    std::string name;
    std::string mask;
    std::string childBits;
    float weight;
    std::int32_t skip;
    words >> name >> mask >> name >> childBits >> name >> weight >> name >> skip;
    EXPECT_EQ(hexadecimal(node.mask) + hexadecimal(node.childBits), mask + childBits);
    EXPECT_EQ(node.weight, weight);
    EXPECT_EQ(node.skip, skip);
    at = text.find("mask 0", at) + 1;
  }
}

TEST_F(NetworkFileDocument, SavedExampleHasTheSizeAndThePlaceThatItTells) {
  const std::string bytes = load();
  CapturedOutput quiet;
  Network::saveNetwork();
  const std::string saved = readFile(networkFileName);
  EXPECT_NE(text.find("writes one of " + std::to_string(saved.size()) + " bytes"), std::string::npos);
  EXPECT_EQ(saved.substr(0x1c, 12 + 3 * 16), bytes.substr(0x10, 12 + 3 * 16));
  clearNetworkTable();
  Network::saveNetwork();
  EXPECT_NE(text.find("= " + std::to_string(readFile(networkFileName).size()) + " bytes"), std::string::npos);
}

TEST_F(NetworkFileDocument, PythonReadsTheExampleAndGivesItsValue) {
  if (std::system("python3 -c '' >/dev/null 2>&1") != 0) GTEST_SKIP() << "there is no python3";
  load();
  const std::string call = blockBehind(text, "So `value_of_position` gives 6.75");
  writeFile("example.py", blockBehind(text, "not a pawn") + "print(" + call + ")\n");
  EXPECT_EQ(std::system("python3 example.py >printed"), 0);
  EXPECT_EQ(readFile("printed"), "6.75\n");
}

TEST_F(BoardTest, NetworkFileDocumentTellsTheWordsOfItsPosition) {
  setUp("8/P7/8/8/8/7k/8/1K6 w");
  describe();
  const auto word = [&](const char* square) { return "(0x" + hexadecimal(at(square).configuration) + ", "; };
  EXPECT_NE(document("docs/network-file.md")
                .find(", 1, [" + word("b1") + "5), " + word("a7") + "0)], [" + word("h3") + "5)])"),
            std::string::npos);
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
  const TemporaryFolder folder;
  const std::string text = document("examples/README.md");
  const std::size_t begin = text.find("\n    (") + 5;
  const std::string command = text.substr(begin, text.find('\n', begin) - begin);
  const std::string here = std::filesystem::current_path().string();
  writeFile("command", "cd '" QUORVANE_BUILD_DIR "'\n" + command.substr(0, command.find("> ")) + ">'" + here +
                           "/games.pgn'\n");
  EXPECT_EQ(std::system("sh command"), 0);
  EXPECT_TRUE(readFile("games.pgn") == document("examples/games.pgn")) << command;
}

}  // namespace
}  // namespace quorvane

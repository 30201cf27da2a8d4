#include "support/board_fixture.h"
#include "support/files.h"

namespace quorvane {
namespace {

using Perft = BoardTest;

TEST_F(Perft, CountsArePublishedOnes) {
  const std::function<int(int)> leaves = [&](int depth) {
    if (depth == 0) return 1;
    int count = 0;
    for (const MoveRecord& move : allMoves()) {
      if (!PseudoLegalMoves::makeIfLegal(move)) continue;
      count += leaves(depth - 1);
      unmakeMove();
    }
    return count;
  };
  std::istringstream lines(readFile(projectFile("tests/board/perft.txt")));
  std::int32_t positions = 0;
  for (std::string line; std::getline(lines, line);) {
    const std::size_t end = line.find(" |");
    if (line.starts_with('#') || end == std::string::npos) continue;
    setUp(line.substr(0, end));
    std::istringstream counts(line.substr(end + 2));
    for (int count, depth = 1; counts >> count; ++depth) EXPECT_EQ(leaves(depth), count) << line;
    ++positions;
  }
  EXPECT_EQ(positions, 16);
}

}  // namespace
}  // namespace quorvane

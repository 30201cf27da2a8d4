#include "network/network_table.h"
#include "support/board_fixture.h"
#include "support/network_tables.h"

namespace quorvane {
namespace {

using Classifier = BoardTest;

TEST_F(Classifier, TellsPositionsByMaterial) {
  // What stands beside the kings, and the type.
  std::istringstream lines(
      "R 0 p 1 q 2 BB 3 pP 4 PP 4 PPPPP 4 ppPPPP 4 pppPPPPPP 4 ppppppppPPPPPPPP 4 bn 5 1 6 N 6 NPp 6 bN 6 "
      "bB 6 nn 6 NPPP 6 RPPPP 6 Rr 7 QBRpp 7 qqqPP 8 qqqPPP 9 qqqqPPPP 10 qqqqqPPPPP 11 qqqqqqPPPPPP 12 "
      "qqqqqqqPPPPPP 12 qqqqqqqPPPPPPP 13 ppppppppRNBQBNRrnbqbnrPPPPPPPP 13");
  PositionType type;
  for (std::string pieces; lines >> pieces >> type;) {
    pieces.resize(48, '1');
    for (std::size_t slash = 0; slash < 54; slash += 9) pieces.insert(slash, 1, '/');
    for (const char* side : {"/4K3 w", "/4K3 b"}) {
      setUp("4k3" + pieces + side);
      EXPECT_EQ(network.classifyPosition(Network::classifyBoard, false), type) << pieces;
      EXPECT_EQ(pawnEnding, type == 1 || type == 4) << pieces;
    }
  }
}

TEST_F(Classifier, TakesARequestedTypeAndClearsCachesIfTold) {
  const Sample sample{{{4, rookKind}}, {}, 0};
  clearNetworkTable();
  networkTable[8][rookKind] = {{4, 0, 2.5F, 1, 0, 0, 0, 0}};
  network.classifyPosition(8, true);
  EXPECT_EQ(network.evaluate(sample), 2.5);
  network.classifyPosition(9, false);
  EXPECT_EQ(network.evaluate(sample), 2.5) << "another row, but the caches are kept";
  network.classifyPosition(9, true);
  EXPECT_EQ(network.evaluate(sample), 0.0);
  clearNetworkTable();
  EXPECT_EQ(network.classifyPosition(4, false), 4);
  EXPECT_TRUE(pawnEnding);
}

}  // namespace
}  // namespace quorvane

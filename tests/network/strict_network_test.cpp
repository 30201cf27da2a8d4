#include "network/strict_network.h"

#include <gtest/gtest.h>

#include <sstream>
#include <string>

#include "network/network_file.h"
#include "support/network_tables.h"

namespace quorvane {
namespace {

using Values = std::initializer_list<std::uint32_t>;

constexpr std::uint32_t weightOne = 0x3f800000;  // the weight 1.0

// What is wrong with a file of these bytes, if anything.
std::string damageOf(const std::string& bytes) {
  std::istringstream file(bytes);
  try {
    readStrictly(file);
    return "";
  } catch (const DamagedNetwork& damage) {
    return damage.what();
  }
}

TEST(StrictNetwork, ReadsWhatIsWhole) {
  std::istringstream file(networkBytes(
      {1, 0, 1, 6, 2, 12, weightOne, 3, 6, 0, weightOne, 1, 10, 0, weightOne, 1, 4, 0, weightOne, 1, 0, 2}));
  NetworkTable table = readStrictly(file);
  EXPECT_EQ(table[6][pawnKind].size(), 4U);
  EXPECT_EQ(table[6][pawnKind][0].skip, 3);
  EXPECT_EQ(damageOf(encodeNetwork(table)), "");
}

TEST(StrictNetwork, TellsWhatIsDamagedInOneLine) {
  const std::string first = "is damaged: pawn pattern 1 of type 0 ";
  const std::string unordered = "is damaged: pawn pattern 2 of type 0 stands out of order";
  const struct {
    Values file;
    std::string damage;
  } cases[] = {{{}, "is cut short at byte 0"},
               {{2}, "is no network file of version 1"},
               {{1}, "is cut short at byte 4"},
               {{1, 2, 0, weightOne}, "is cut short at byte 16"},
               {{1, 2, 0, weightOne, 1, 0}, "is cut short at byte 24"},
               {{1, 0, 2, 0}, "goes on behind its end record"},
               {{1, 0, 7}, "holds a control record of the unknown code 7"},
               {{1, 0, 0, 6, 0, 1, 14}, "selects the piece kind 6, which does not exist"},
               {{1, 0, 1, 14, 0, 7}, "selects the position type 14, which does not exist"},
               {{1, 2, 4, weightOne, 1, 0, 2}, first + "names other bits than its extensions add"},
               {{1, 6, 0, weightOne, 1, 0, 2}, first + "does not add one bit to the pattern that it extends"},
               {{1, 2, 0, weightOne, 0, 0, 2}, first + "claims extensions that are not there"},
               {{1, 2, 0, weightOne, 2, 0, 2}, first + "claims extensions that are not there"},
               {{1, 2, 0, 0x7fc00000, 1, 0, 2}, first + "has a weight that is no finite number"},
               {{1, 4, 0, weightOne, 1, 2, 0, weightOne, 1, 0, 2}, unordered},
               {{1, 4, 0, weightOne, 1, 4, 0, weightOne, 1, 0, 2}, unordered},
               {{1, 4, 2, weightOne, 2, 6, 0, weightOne, 1, 0, 2}, unordered},
               {{1, 0, 0, 3, 0, 1, 13, 2, 4, weightOne, 2, 12, 0, weightOne, 1, 0, 2},
                "is damaged: rook pattern 2 of type 13 does not add one bit to the pattern that it extends"}};
  for (const auto& [file, damage] : cases) EXPECT_EQ(damageOf(networkBytes(file)), damage);
  EXPECT_EQ(damageOf(networkBytes({1, 0}).substr(0, 7)), "is cut short at byte 7");
  EXPECT_EQ(damageOf(networkBytes({1}).substr(0, 3)), "is cut short at byte 3");
}

}  // namespace
}  // namespace quorvane

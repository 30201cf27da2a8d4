#include <nlohmann/json.hpp>

#include "inspect/inspect_fixture.h"

namespace quorvane {
namespace {

using Json = nlohmann::json;

void write(const char* name, std::initializer_list<std::uint32_t> values) {
  std::ofstream file(name, std::ios::binary);
  for (const std::uint32_t value : values) {
    for (int shift = 0; shift < 32; shift += 8) file.put(static_cast<char>(value >> shift));
  }
}

constexpr std::uint32_t one = 0x3f800000;  // the weight 1.0
constexpr std::uint32_t half = 0x3f000000;

class InspectProgram : public InspectTest {
 protected:
  // Type 6 of pawns and type 2 of rooks.
  static void writeSmallNetwork() {
    write("network.dat",
          {1, 0, 1, 6, 2, 4, one, 2, 6, 0, half, 1, 0, 0, 3, 0, 1, 2, 1 << 21, 0, half, 1, 0, 2});
  }
  static Json json(const std::string& arguments) {
    const Outcome outcome = inspect(arguments + " --json");
    EXPECT_EQ(outcome.status, 0) << outcome.errors;
    return Json::parse(outcome.output, nullptr, false);
  }
  static void expectFault(const std::string& arguments, const std::string& line) {
    const Outcome outcome = inspect(arguments);
    EXPECT_EQ(outcome.status, 1) << arguments;
    EXPECT_EQ(outcome.output, "") << arguments;
    EXPECT_EQ(outcome.errors, "quorvane-inspect: " + line + "\n");
  }
};

TEST_F(InspectProgram, ShowHasTheDocumentedShape) {
  writeSmallNetwork();
  EXPECT_EQ(json("show --type 6"), Json::parse(R"({"network": "network.dat",
    "lists": [{"type": 6, "kind": "pawn", "patterns": 2, "bySize": [1, 1, 0],
               "lowest": 0.5, "highest": 1.0, "mean": 0.75, "deviation": 0.25}],
    "strongest": [{"type": 6, "kind": "pawn", "weight": 1.0, "mask": 2, "bits": ["materialBehind"]},
                  {"type": 6, "kind": "pawn", "weight": 0.5, "mask": 6, "bits": ["blocked", "materialBehind"]}]})"));
  EXPECT_EQ(json("show --kind rook --top 1")["strongest"][0]["bits"], Json({"enemy king within 2 files"}));
}

TEST_F(InspectProgram, ExplainHasTheDocumentedShape) {
  writeSmallNetwork();
  const Json explained = json("explain --fen '8/8/4k3/4p3/4P3/3BK3/8/8 b'");
  EXPECT_EQ(explained["type"], 6);
  EXPECT_EQ(explained["sideToMove"], "black");
  EXPECT_EQ(explained["total"], 1.5);
  EXPECT_EQ(explained["sums"], Json({{"white", 0.0}, {"black", 1.5}}));
  EXPECT_EQ(explained["pieces"].size(), 5U);
  EXPECT_EQ(explained["pieces"][1]["square"], "e5");
  EXPECT_EQ(explained["pieces"][1]["patterns"][1],
            Json({{"weight", 0.5}, {"mask", 6}, {"bits", {"blocked", "materialBehind"}}}));
  EXPECT_EQ(json("explain --pgn few.pgn --game 2 --ply 7")["sideToMove"], "black");
}

TEST_F(InspectProgram, ValidateHasTheDocumentedShape) {
  writeSmallNetwork();
  const Json validated = json("validate few.pgn");
  EXPECT_EQ(validated["files"], Json({"few.pgn"}));
  EXPECT_EQ(validated["types"].size(), 9U);
  Json type6 = validated["types"][1];
  EXPECT_EQ(type6["type"], 6);
  type6.erase("type");
  type6.erase("patterns");
  EXPECT_EQ(type6, validated["all"]);
  for (const char* key : {"samples", "network", "zeros", "decided", "signPercentage"})
    EXPECT_TRUE(type6.contains(key)) << key;
  EXPECT_EQ(type6["bands"].size(), 10U);
}

TEST_F(InspectProgram, ReportIsOnePageThatIsWrittenWholeOrNotAtAll) {
  writeSmallNetwork();
  EXPECT_EQ(inspect("report -o page.html --validate few.pgn").status, 0);
  const std::string page = textOfFile("page.html");
  EXPECT_TRUE(page.starts_with("<!DOCTYPE html>") && page.ends_with("</html>\n"));
  EXPECT_EQ(page.find("src="), std::string::npos);
  EXPECT_NE(page.find("\"meanTarget\""), std::string::npos);
  expectFault("report -o page.html --validate missing.pgn", "missing.pgn: cannot be opened");
  EXPECT_EQ(textOfFile("page.html"), page);
  std::filesystem::create_directories("page.html.saving/in the way");
  expectFault("report -o page.html", "page.html: cannot be written");
  EXPECT_EQ(textOfFile("page.html"), page);
}

TEST_F(InspectProgram, DamagedNetworksAreRefusedInOneLine) {
  const auto expectRefused = [](std::initializer_list<std::uint32_t> file, const std::string& wrong) {
    write("bad.dat", file);
    expectFault("show bad.dat", "bad.dat: " + wrong);
  };
  expectRefused({}, "is cut short at byte 0");
  expectRefused({2}, "is no network file of version 1");
  expectRefused({1, 2, 0, one}, "is cut short at byte 16");
  expectRefused({1, 0, 2, 0}, "goes on behind its end record");
  expectRefused({1, 0, 7}, "holds a control record of the unknown code 7");
  expectRefused({1, 0, 0, 6}, "selects the piece kind 6, which does not exist");
  expectRefused({1, 0, 1, 14}, "selects the position type 14, which does not exist");
  const std::string first = "is damaged: pawn pattern 1 of type 0 ";
  expectRefused({1, 2, 4, one, 1, 0, 2}, first + "names other bits than its extensions add");
  expectRefused({1, 6, 0, one, 1, 0, 2}, first + "does not add one bit to the pattern that it extends");
  expectRefused({1, 2, 0, one, 0, 0, 2}, first + "claims extensions that are not there");
  expectRefused({1, 2, 0, 0x7fc00000, 1, 0, 2}, first + "has a weight that is no finite number");
  expectRefused({1, 4, 0, one, 1, 2, 0, one, 1, 0, 2},
                "is damaged: pawn pattern 2 of type 0 stands out of order");
  expectFault("show missing.dat", "missing.dat: cannot be opened");
  expectFault("show .", ".: is a folder");
}

TEST_F(InspectProgram, UnusablePositionsAndGamesAreFaultsAndWrongUsageIsNot) {
  writeSmallNetwork();
  std::ofstream("empty.pgn") << "\n";
  std::ofstream("open.pgn") << "[Event \"x\"] 1. e4 e5 *";
  expectFault("explain --fen 8/8", "FEN \"8/8\": does not give each side exactly one king");
  EXPECT_EQ(inspect("explain --fen K6P/k7").errors.find("quorvane-inspect: FEN \"K6P/k7\": has more than 16"),
            0U);
  expectFault("explain --pgn few.pgn --game 61", "few.pgn: has no game 61; the last is 60");
  expectFault("explain --pgn open.pgn --ply 3", "open.pgn: game 1 has no ply 3; the last is 2");
  expectFault("explain --pgn empty.pgn", "empty.pgn: holds no games");
  expectFault("validate open.pgn", "open.pgn: holds no game with a result");
  for (const char* usage :
       {"", "no-command", "show --type 14", "explain", "validate", "report", "show --top -1"}) {
    EXPECT_EQ(inspect(usage).status, 2) << usage;
  }
}

}  // namespace
}  // namespace quorvane

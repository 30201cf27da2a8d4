#include <cmath>
#include <nlohmann/json.hpp>
#include <sstream>

#include "inspect/inspect_fixture.h"

namespace quorvane::inspect {
namespace {

using Json = nlohmann::json;

void write(const char* name, std::initializer_list<std::uint32_t> values) {
  std::ofstream file(name, std::ios::binary);
  for (const std::uint32_t value : values) {
    for (int shift = 0; shift < 32; shift += 8) file.put(static_cast<char>(value >> shift));
  }
}

constexpr std::uint32_t weightOne = 0x3f800000;  // the weight 1.0
constexpr std::uint32_t weightHalf = 0x3f000000;

class InspectProgram : public InspectTest {
 protected:
  // Type 6 of pawns and type 2 of rooks.
  static void writeSmallNetwork() {
    write("network.dat", {1, 0, 1, 6, 2, 4, weightOne, 2, 6,          0, weightHalf, 1,
                          0, 0, 3, 0, 1, 2, 1 << 21,   0, weightHalf, 1, 0,          2});
  }
  static Json json(const std::string& arguments) {
    const Outcome outcome = inspect(arguments + " --json");
    EXPECT_EQ(outcome.status, 0) << outcome.errors;
    return Json::parse(outcome.output, nullptr, false);
  }
  static void expectFault(const std::string& arguments, const std::string& line,
                          const std::string& before = "") {
    const Outcome outcome = inspect(arguments, before);
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
    "strongest": [{"type": 6, "kind": "pawn", "weight": 1.0, "mask": 2, "bits": ["less material"],
                   "identifiers": ["materialBehind"]},
                  {"type": 6, "kind": "pawn", "weight": 0.5, "mask": 6, "bits": ["blocked", "less material"],
                   "identifiers": ["blocked", "materialBehind"]}]})"));
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
  EXPECT_EQ(explained["pieces"][1]["patterns"][1], Json({{"weight", 0.5},
                                                         {"mask", 6},
                                                         {"bits", {"blocked", "less material"}},
                                                         {"identifiers", {"blocked", "materialBehind"}}}));
  EXPECT_EQ(explained["expectedScore"], nullptr);
  EXPECT_EQ(explained["deciding"][0]["opposing"], Json::array());
  EXPECT_EQ(explained["deciding"][0]["own"], Json({"e5"}));
  const Json played = json("explain --pgn few.pgn --game 2 --ply 7");
  EXPECT_EQ(played["sideToMove"], "black");
  EXPECT_EQ(played["move"].get<std::string>().substr(0, 3), "4. ");
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
  for (const char* key : {"samples", "network", "zeros", "material", "decided", "signPercentage"})
    EXPECT_TRUE(type6.contains(key)) << key;
  EXPECT_EQ(type6["bands"].size(), 10U);
  EXPECT_EQ(validated["scoreBands"].size(), 10U);
  EXPECT_EQ(validated["tally"]["withResult"], validated["games"]);
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
  expectFault("report -o page.html", "page.html: cannot be written", "ulimit -f 1; ");  // no room
  EXPECT_EQ(textOfFile("page.html"), page);
  expectFault("report -o missing/page.html", "missing/page.html: cannot be written");
  expectFault("report -o .", ".: is a folder");
}

TEST_F(InspectProgram, ReportKeepsPermissionsAndTouchesNothingElse) {
  namespace fs = std::filesystem;
  writeSmallNetwork();
  std::ofstream("page.html") << R"(<meta name="generator" content="quorvane-inspect">)";
  fs::permissions("page.html", fs::perms::owner_all);
  std::ofstream("victim") << "victim";
  fs::create_symlink("victim", "page.html.saving");
  EXPECT_EQ(inspect("report -o page.html").status, 0);
  EXPECT_EQ(fs::status("page.html").permissions(), fs::perms::owner_all);
  EXPECT_TRUE(textOfFile("page.html").ends_with("</html>\n"));
  EXPECT_EQ(textOfFile("victim"), "victim");
  EXPECT_TRUE(fs::is_symlink("page.html.saving"));
}

TEST_F(InspectProgram, NetworksThatCannotBeUsedAreRefusedInOneLine) {
  write("bad.dat", {1, 2, 4, weightOne, 1, 0, 2});
  expectFault("show bad.dat",
              "bad.dat: is damaged: pawn pattern 1 of type 0 names other bits than its extensions add");
  expectFault("show missing.dat", "missing.dat: cannot be opened");
  expectFault("show .", ".: is a folder");
}

TEST_F(InspectProgram, UnusablePositionsAndGamesAreFaultsAndWrongUsageIsNot) {
  writeSmallNetwork();
  std::ofstream("empty.pgn") << "\n";
  std::ofstream("open.pgn") << "[Event \"x\"] 1. e4 e5 *";
  for (const auto& [fen, wrong] :
       {std::pair("4k3/8/8/8/8/8/4K3 w", "has 7 ranks instead of 8"),
        std::pair("4k3/8/8/8/8/8/9/4K3 w", "rank 2 holds '9', which is no piece"),
        std::pair("4k3/8/8/ppp/8/8/8/4K3 w", "rank 5 has 3 files"),
        std::pair("4k3/8/8/8/8/8/8/4K3P w", "rank 1 has 9 files"),
        std::pair("4k3/8/8/8/8/8/8/4K2P w", "a pawn stands on rank 1"),
        std::pair("4k3/8/8/8/8/8/8/8 w", "does not give each side exactly one king"),
        std::pair("4k3/8/8/8/8/8/8/4K3", "does not say which side is to move"),
        std::pair("4k3/8/8/8/8/8/8/4K3 white", "names 'white' as the side to move, which is neither w nor b"),
        std::pair("8/8/8/3kK3/8/8/8/8 w", "puts the kings side by side"),
        std::pair("4k3/8/8/8/8/8/8/K3R3 w", "leaves the side that is not to move in check")}) {
    const std::string given = std::string(" --fen '") + fen + "'";
    expectFault("explain" + given, std::string("FEN \"") + fen + "\": " + wrong);
    EXPECT_EQ(inspect("explain --lenient" + given).status, std::string(wrong).ends_with("one king") ? 1 : 0)
        << fen;
  }
  EXPECT_EQ(inspect("explain --lenient --fen K6P/k7")
                .errors.find("quorvane-inspect: FEN \"K6P/k7\": has more than 16"),
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

TEST_F(InspectProgram, NothingThatIsReadOrSomebodyElsesIsWrittenOver) {
  namespace fs = std::filesystem;
  writeSmallNetwork();
  std::ofstream("notes.html") << "<html>my own</html>";
  fs::create_hard_link("few.pgn", "other-name");
  fs::create_symlink("network.dat", "link");
  const std::string before = textOfFile("network.dat") + textOfFile("few.pgn");
  const std::string read = ": is read, and cannot be written as well";
  expectFault("report -o network.dat", "network.dat" + read);
  expectFault("report -o ./link", "./link" + read);
  expectFault("report -o other-name --validate few.pgn", "other-name" + read);
  expectFault("validate few.pgn --calibration few.pgn", "few.pgn" + read);
  const std::string others = "; remove it first, or choose another name";
  expectFault("report -o notes.html", "notes.html: exists and is no page of quorvane-inspect" + others);
  expectFault("validate few.pgn --calibration notes.html",
              "notes.html: exists and is no calibration of quorvane-inspect" + others);
  EXPECT_EQ(textOfFile("network.dat") + textOfFile("few.pgn"), before);
  EXPECT_EQ(textOfFile("notes.html"), "<html>my own</html>");
}

TEST_F(InspectProgram, CalibrationIsWrittenReadFromBesideTheNetworkAndRefusedForAnother) {
  writeSmallNetwork();
  const std::string fen = "explain --fen '8/8/4k3/4p3/4P3/3BK3/8/8 b'";
  const std::string beside = "network.dat.calibration.json";
  EXPECT_EQ(inspect("validate few.pgn --calibration " + beside).status, 0);
  EXPECT_EQ(inspect("validate few.pgn --calibration " + beside).status, 0);  // over its own
  const Json calibration = Json::parse(textOfFile(beside));
  const double score = 1.0 / (1.0 + std::exp(-1.5 * calibration["types"][1]["steepness"].get<double>()));
  EXPECT_NEAR(json(fen)["expectedScore"], score, 1e-12);
  EXPECT_EQ(json(fen)["pieces"][1]["meanWorth"], calibration["types"][1]["meanWorth"]["pawn"]);
  EXPECT_NE(inspect("validate few.pgn").output.find("the curves of\n" + beside), std::string::npos);

  write("network.dat", {1, 2, 0, weightOne, 1, 0, 2});
  const Outcome outcome = inspect(fen);
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.errors,
            "quorvane-inspect: " + beside + ": is the calibration of another network, and is not used\n");
  expectFault(fen + " --calibration " + beside, beside + ": is the calibration of another network");
  expectFault(fen + " --calibration few.pgn", "few.pgn: is no calibration that quorvane-inspect has written");
}

TEST_F(InspectProgram, FensOfStandardInputGiveALineEach) {
  writeSmallNetwork();
  std::ofstream("fens") << "8/8/4k3/4p3/4P3/3BK3/8/8 b\r\n\nrnbqkbnr/8\n8/8/4k3/4p3/4P3/3BK3/8/8 w - -";
  const Outcome outcome = inspect("explain --fens - <fens");
  EXPECT_EQ(outcome.status, 1);
  EXPECT_EQ(outcome.errors, "quorvane-inspect: standard input: 2 of 4 lines are no chess positions\n");
  std::istringstream lines(outcome.output);
  std::vector<Json> values;
  for (std::string line; std::getline(lines, line);) values.push_back(Json::parse(line));
  ASSERT_EQ(values.size(), 4U);
  EXPECT_EQ(values[0]["total"], 1.5);
  EXPECT_EQ(values[1]["error"], "FEN \"\": has 1 rank instead of 8");
  EXPECT_EQ(values[2]["fen"], "rnbqkbnr/8");
  EXPECT_EQ(values[3]["total"], -1.5);
  EXPECT_EQ(values[3]["pieces"].size(), 5U);
}

TEST_F(InspectProgram, UsageIsTakenAsPeopleMeanIt) {
  writeSmallNetwork();
  EXPECT_TRUE(inspect("--version").output.starts_with("quorvane-inspect "));
  EXPECT_EQ(inspect("shwo").errors, "quorvane-inspect: unknown command 'shwo', did you mean 'show'?\n");
  EXPECT_EQ(inspect("valdate few.pgn").errors,
            "quorvane-inspect: unknown command 'valdate', did you mean 'validate'?\n");
  EXPECT_EQ(inspect("no-command").errors,
            "quorvane-inspect: unknown command 'no-command'; there are show, explain, validate, compare, "
            "games, annotate, report\n");
  expectFault("validate few.pgn network.dat", "network.dat: is a network, not a file of games");
  expectFault("games network.dat", "network.dat: is a network, not a file of games");
  EXPECT_TRUE(inspect("report -o page.html").errors.starts_with("quorvane-inspect: wrote page.html, "));
}

}  // namespace
}  // namespace quorvane::inspect

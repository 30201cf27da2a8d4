#include "inspect/annotate/annotation.h"

#include <cmath>
#include <nlohmann/json.hpp>

#include "inspect/common/fault.h"
#include "inspect/common/game_files.h"
#include "inspect/inspect_fixture.h"
#include "inspect/annotate/pawn_scale.h"

namespace quorvane::inspect {
namespace {

using Json = nlohmann::json;

constexpr PositionType kingsAndPawns = 4;

class AnnotatedGames : public InspectTest {
 protected:
  // By a network that knows nothing and says 0 of everything, but for kings and pawns, of which it says nothing.
  static Annotation annotate(const std::string& text) {
    Calibration calibration;
    for (TypeCalibration& type : calibration.types) type.hasPatterns = true;
    calibration.types[kingsAndPawns].hasPatterns = false;
    writeFile("in.pgn", text);
    return annotateGames("in.pgn", calibration, [](auto&&...) {});
  }
  static void expectText(const std::string& text, const std::string& annotated) {
    EXPECT_EQ(annotate(text).text, annotated);
    EXPECT_EQ(annotate(annotated).text, annotated);
  }
  static std::string withoutInsertions(std::string text) {
    const std::string inserted = " { [%eval 0.00] }";
    for (std::size_t at = 0; (at = text.find(inserted, at)) != std::string::npos;)
      text.erase(at, inserted.size());
    return text;
  }
  static std::vector<std::string> tokens(const std::string& name) {
    PgnDatabase games = loadAnyGames(name);
    std::vector<std::string> all;
    for (std::int32_t number = 0; number < gameCount(games); ++number) {
      const PgnGame& game = *games.game(number);
      all.push_back("game with " + std::to_string(game.tags.size()) + " tags");
      for (std::size_t index = 0; index < game.tokens.size(); ++index) {
        if (game.tokens[index] != "{ [%eval 0.00] }") all.emplace_back(game.tokens[index]);
      }
    }
    return all;
  }
};

TEST_F(AnnotatedGames, CommentsStandBehindMoveAndGlyphsAndNothingElseChanges) {
  expectText(
      "[Event \"a\"]\r\n\r\n{ first } 1. e4 $1 !? {good}\r\n (1. d4 d5) 1... e5  ;\r\n\r\n 2. Nf3",
      "[Event \"a\"]\r\n\r\n{ first } 1. e4 $1 !? { [%eval 0.00] } {good}\r\n (1. d4 d5) 1... e5 { [%eval "
      "0.00] }  ;\r\n\r\n 2. Nf3 { [%eval 0.00] }");
  expectText("1.e4 $1a e5\t10 .N f3 1-0",  // a blank behind a single letter is none
             "1.e4 { [%eval 0.00] } $1a e5 { [%eval 0.00] }\t10 .N f3 { [%eval 0.00] } 1-0");
}

TEST_F(AnnotatedGames, EarlierValuesBehindAMoveAreReplaced) {
  expectText("1. e4 { book [%eval\n0.2,18] [%clk 0:01] } {[%eval #3][%eval 1]} (1. d4 { [%eval 0.1] }) *",
             "1. e4 { book [%eval 0.00] [%clk 0:01] } {[%eval 0.00][%eval 0.00]} (1. d4 { [%eval 0.1] }) *");
  expectText("{ [%eval 0.3] } 1. e4 { [%evaluation 3] [%eval 1 } *",
             "{ [%eval 0.3] } 1. e4 { [%eval 0.00] } { [%evaluation 3] [%eval 1 } *");
}

TEST_F(AnnotatedGames, GamesThatCannotBeReplayedStayAndAreCounted) {
  const std::string fine = "[White \"x\"] 1. e4 { [%eval 0.00] } 1-0 ";
  const std::string left = "[White \"x\"] 1. e4 { [%eval 0.35] } e5 2. O-O+ *\n[Event \"y\"] 1. e4 d4 1-0\n";
  const Annotation annotation = annotate("[White \"x\"] 1. e4 1-0 " + left + left + "[Event \"no moves\"] *");
  EXPECT_EQ(annotation.text, fine + left + left + "[Event \"no moves\"] *");
  EXPECT_EQ(annotation.tally.games, 1U);
  EXPECT_EQ(annotation.tally.withoutValues, 1U);
  EXPECT_EQ(annotation.tally.left.at(Oddity::unreadableToken).games, 2U);
  EXPECT_EQ(annotation.tally.left.at(Oddity::noPiece).games, 2U);
  EXPECT_EQ(annotation.tally.left.at(Oddity::noPiece).first, 3);
  // Without a result behind it, no token tells where the moves end.
  EXPECT_EQ(annotate("1. e4 e5 2. e.p.").tally.left.size(), 1U);
}

TEST_F(AnnotatedGames, PositionsOfWhichTheNetworkKnowsNothingGetNoValue) {
  const Annotation annotation =
      annotate("[FEN \"4k3/p7/8/8/8/8/r7/KP6 w\"] 1. Kxa2 { [%eval 0.2] [%clk 0:01] } a6 a7 1. b3 *");
  EXPECT_TRUE(
      annotation.text.ends_with("1. Kxa2 { [%eval 0.2] [%clk 0:01] } a6 a7 1. b3 *"));  // cannot be played
  const Annotation played =
      annotate("[FEN \"4k3/p7/8/8/8/8/rP6/K7 w\"] 1. Kxa2 { [%eval 0.2] [%clk 0:01] } a6 *");
  EXPECT_TRUE(played.text.ends_with("1. Kxa2 {  [%clk 0:01] } a6 *"));
  EXPECT_EQ(played.tally.unknownMoves, 2U);
  EXPECT_EQ(played.tally.withoutValues, 1U);
}

TEST_F(AnnotatedGames, TheUtilityReadsTheSameGamesAgainFromAnyText) {
  std::size_t files = 0;
  for (const auto& entry : std::filesystem::directory_iterator(projectFile("fuzz/corpus/pgn"))) {
    const std::string text = readFile(entry.path());
    try {
      writeFile("out.pgn", annotate(text).text);
    } catch (const Fault&) {
      continue;  // holds no games
    }
    ++files;
    EXPECT_EQ(withoutInsertions(readFile("out.pgn")), text) << entry.path();
    EXPECT_EQ(tokens("out.pgn"), tokens("in.pgn")) << entry.path();
  }
  EXPECT_GT(files, 10U);
  const Annotation annotation = annotate(readFile("few.pgn"));
  writeFile("out.pgn", annotation.text);
  EXPECT_EQ(tokens("out.pgn"), tokens("few.pgn"));
  EXPECT_GE(annotation.tally.games, 50U);
}

TEST_F(AnnotatedGames, ExampleOfTheDocumentIsThatOfTheProgram) {
  const std::string document = readFile(projectFile("docs/inspect.md"));
  const auto blockBehind = [&](const std::string& mark) {
    const std::size_t begin = document.find("```\n", document.find(mark)) + 4;
    return document.substr(begin, document.find("```", begin) - begin);
  };
  std::string shown = blockBehind("by a network learned from 14,000");
  for (std::size_t at = 0; (at = shown.find("[%eval ", at)) != std::string::npos; ++at)
    shown.replace(at, shown.find(']', at) - at, "[%eval 0.00");
  EXPECT_EQ(annotate(blockBehind("`annotate game.pgn -o out.pgn`")).text, shown);
}

TEST_F(AnnotatedGames, PawnsAreThoseOfThePublishedFormula) {
  for (const double pawns : {-9.99, -1.0, 0.0, 0.35, 4.5}) {
    const double winPercent = 50 + 50 * (2 / (1 + std::exp(-0.00368208 * 100 * pawns)) - 1);
    EXPECT_NEAR(pawnsOfScore(winPercent / 100), pawns, 1e-9);
  }
  EXPECT_EQ(pawnsOfScore(0.0), -10.0);
  EXPECT_EQ(pawnsOfScore(1.0), 10.0);
}

class AnnotateProgram : public InspectTest {
 protected:
  AnnotateProgram() {
    learn();
    EXPECT_EQ(inspect("validate few.pgn --calibration network.dat.calibration.json").status, 0);
    // So few games are known by heart, and nearly all as good as won.
    Json calibration = Json::parse(textOfFile("network.dat.calibration.json"));
    for (Json& type : calibration["types"]) {
      if (!type["steepness"].is_null()) type["steepness"] = 0.003;
    }
    writeFile("network.dat.calibration.json", calibration.dump());
  }
  static void expectFault(const std::string& arguments, const std::string& line,
                          const std::string& before = "") {
    const Outcome outcome = inspect("annotate " + arguments, before);
    EXPECT_EQ(outcome.status, 1) << arguments;
    EXPECT_EQ(outcome.errors, "quorvane-inspect: " + line + "\n");
  }
};

TEST_F(AnnotateProgram, ValuesAreThoseOfExplainAsWhiteSeesThem) {
  const Outcome outcome = inspect("annotate few.pgn -o /dev/stdout");
  EXPECT_EQ(outcome.status, 0) << outcome.errors;
  writeFile("out.pgn", outcome.output);
  PgnDatabase games = loadGames("out.pgn");
  const PgnGame& game = *games.game(0);
  int ply = 0;
  double least = 0.0;
  double greatest = 0.0;
  for (std::size_t index = 0; index < game.tokens.size(); ++index) {
    const std::string token(game.tokens[index]);
    if (!token.starts_with("{ [%eval ")) continue;
    ++ply;
    const Json explained = Json::parse(
        inspect("explain --pgn few.pgn --top 0 --json --ply " + std::to_string(ply)).output, nullptr, false);
    const double score = explained.at("expectedScore");
    const double cp = std::log(score / (1 - score)) / 0.00368208;
    const double pawns = std::stod(token.substr(9));
    EXPECT_NEAR(pawns, (explained.at("sideToMove") == "white" ? cp : -cp) / 100, 0.00501) << ply;
    EXPECT_LT(std::abs(pawns), 10.0);
    least = std::min(least, pawns);
    greatest = std::max(greatest, pawns);
  }
  EXPECT_TRUE(inspect("explain --pgn few.pgn --ply " + std::to_string(ply)).status == 0 && ply > 10);
  EXPECT_EQ(inspect("explain --pgn few.pgn --ply " + std::to_string(ply + 1)).status, 1);
  EXPECT_GT(greatest - least, 0.5);
}

TEST_F(AnnotateProgram, TellsWhatItAnnotatedAndHarmsNoFile) {
  writeFile("odd.pgn", "[Event \"a\"] 1. e4 e5 *\n[Event \"b\"] 1. e4 Ke7 *\n");
  const Outcome outcome = inspect("annotate odd.pgn -o out.pgn");
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.output, "");
  EXPECT_EQ(outcome.errors,
            "quorvane-inspect: annotated 1 game, 2 moves\n"
            "quorvane-inspect: 1 game left as before: no piece can make the move (game 2, ply 2, Ke7)\n"
            "quorvane-inspect: wrote out.pgn, 1 KB\n");
  const std::string before = textOfFile("out.pgn") + textOfFile("odd.pgn");
  expectFault("few.pgn -o out.pgn", "out.pgn: exists; choose another name, or replace it with --force");
  expectFault("few.pgn -o out.pgn --force", "out.pgn: cannot be written", "ulimit -f 1; ");  // no room
  for (const char* input : {"./odd.pgn", "network.dat", "network.dat.calibration.json"}) {
    expectFault(std::string("odd.pgn --force -o ") + input,
                std::string(input) + ": is read, and cannot be written as well");
  }
  EXPECT_EQ(textOfFile("out.pgn") + textOfFile("odd.pgn"), before);
  EXPECT_EQ(inspect("annotate few.pgn -o out.pgn --force").status, 0);
  EXPECT_NE(textOfFile("out.pgn") + textOfFile("odd.pgn"), before);
  std::filesystem::remove("network.dat.calibration.json");
  expectFault("few.pgn -o new.pgn",
              "network.dat: has no calibration; make one with: quorvane-inspect validate GAMES.pgn "
              "--calibration network.dat.calibration.json");
  EXPECT_FALSE(std::filesystem::exists("new.pgn"));
}

}  // namespace
}  // namespace quorvane::inspect

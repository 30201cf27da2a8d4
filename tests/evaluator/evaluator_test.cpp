#include "quorvane/evaluator.h"

#include <gtest/gtest.h>

#include <cmath>

#include "network/fingerprint.h"
#include "pgn/pgn_database.h"
#include "support/board_fixture.h"
#include "support/evaluator_laws.h"
#include "support/files.h"
#include "support/network_tables.h"
#include "support/temporary_folder.h"
#include "tools/game_generator.h"

namespace quorvane {
namespace {

const std::string usualFen = usualStart + "w KQkq - 0 1";

TEST(Evaluator, AgreesWithTheBoardInAThousandGames) {
  const TemporaryFolder folder;
  EvaluatorLaws laws;
  GameGenerator generator(1);
  for (int round = 0; round < 1000; ++round) {
    writeFile("generated.pgn", round % 4 != 0 ? generator.nextGame() : generator.nextEnding());
    PgnDatabase database;
    database.load("generated.pgn");
    PgnGame& game = *database.game(0);
    Board::setupPosition(game.placement, game.sideToMove);
    DecodedMove move;
    do ASSERT_STREQ(laws.broken(), nullptr) << "game " << round;
    while (game.nextMove(move) && Board::playGameMove(move));
  }
}

class EvaluatorOnBoard : public BoardTest {
 protected:
  const TemporaryFolder folder;
  EvaluatorLaws laws;
};

TEST_F(EvaluatorOnBoard, AgreesWithTheBoardInOddPositions) {
  for (const char* fen :
       {"8/8/8/8/8/8/8/Kk6 w", "P3k2P/8/8/8/8/8/p6p/P3K2P w", "4k3/8/8/8/8/8/8/P3K2P b",
        "qqqqkqqq/qqqqqqqq/8/8/8/8/QQQQQQQQ/QQQQKQQQ b", "k7/8/8/8/8/8/8/7K w", "7k/8/8/8/8/8/8/K6R b",
        "rnbqkbnr/8/PPPPPPPP/8/8/pppppppp/8/RNBQKBNR w", "4k3/8/8/8/8/8/8/2B1KB2 w",
        "4k3/8/8/8/8/8/8/2B1K1N1 b", "4k3/8/8/8/8/8/8/3QK3 b"}) {
    PgnGame game;
    ASSERT_TRUE(game.parseFen("FEN \"" + std::string(fen) + "\"")) << fen;
    double ofFen = 1.0;
    const bool evaluated = quorvane_evaluate_fen(laws.opened(), fen, &ofFen) == QUORVANE_OK;
    ASSERT_EQ(evaluated, game.placement.fitsBoard()) << fen;
    if (!evaluated) continue;
    setUp(fen);
    EXPECT_STREQ(laws.broken(), nullptr) << fen;
    const quorvane_position given = laws.positionOnBoard();
    double value = 0.0;
    EXPECT_EQ(quorvane_evaluate(laws.opened(), &given, &value), QUORVANE_OK);
    EXPECT_EQ(value, ofFen) << fen;
  }
}

TEST(EvaluatorFen, ReadsWhatIsWrittenAndRefusesWhatIsNone) {
  const std::pair<std::string, quorvane_status> cases[] = {
      {usualFen, QUORVANE_OK},
      {" \t\r\n" + usualStart + " \t b \n", QUORVANE_OK},
      {"4k3/8/8/8/8/8/8/4K3 w HAha e3 bm Kd2; id \"x\";", QUORVANE_OK},
      {"", QUORVANE_FEN_BOARD},
      {"4k3/8/8/8/8/8/8/4K3/ w - -", QUORVANE_FEN_BOARD},
      {"4k3/8/8/8/8/8/4K3 w - -", QUORVANE_FEN_BOARD},
      {"4k3/7/8/8/8/8/8/4K3 w - -", QUORVANE_FEN_BOARD},
      {"4k3/9/8/8/8/8/8/4K3 w - -", QUORVANE_FEN_BOARD},
      {"4k3/44p/8/8/8/8/8/4K3 w - -", QUORVANE_FEN_BOARD},
      {"4k3/.7/8/8/8/8/8/4K3 w - -", QUORVANE_FEN_BOARD},
      {"4k3/8/8/8/8/8/8/4K3", QUORVANE_FEN_SIDE},
      {"4k3/8/8/8/8/8/8/4K3 W - -", QUORVANE_FEN_SIDE},
      {"4k3/8/8/8/8/8/8/4K3 w e3 -", QUORVANE_FEN_CASTLING},
      {"4k3/8/8/8/8/8/8/4K3 w - KQ", QUORVANE_FEN_EN_PASSANT},
      {"qqqqkqqq/qqqqqqqq/q7/8/8/8/8/4K3 w", QUORVANE_OK},  // read, but refused below
      {"qqqqqqqq/qqqqqqqq/qqqqqqqq/qqqqqqqq/q7/8/8/4K3 w", QUORVANE_PIECE_COUNT},
  };
  for (const auto& [fen, status] : cases) {
    quorvane_position position{};
    position.count = -1;
    EXPECT_EQ(quorvane_read_fen(fen.c_str(), &position), status) << fen;
    EXPECT_EQ(position.count == -1, status != QUORVANE_OK) << fen << ": filled only on success";
  }
}

TEST(EvaluatorPositions, AreRefusedWithAReason) {
  quorvane_position usual{};
  ASSERT_EQ(quorvane_read_fen(usualFen.c_str(), &usual), QUORVANE_OK);
  ASSERT_EQ(usual.count, 32);
  using Change = void (*)(quorvane_position&);
  const std::pair<Change, quorvane_status> cases[] = {
      {[](auto&) {}, QUORVANE_OK},
      {[](auto& p) { p.count = 33; }, QUORVANE_PIECE_COUNT},
      {[](auto& p) { p.count = -1; }, QUORVANE_PIECE_COUNT},
      {[](auto& p) { p.count = 0; }, QUORVANE_KING_COUNT},
      {[](auto& p) { p.pieces[8].piece = QUORVANE_WHITE_PAWN; }, QUORVANE_PIECE_COUNT},
      {[](auto& p) { p.pieces[8].piece = 6; }, QUORVANE_PIECE_UNKNOWN},
      {[](auto& p) { p.pieces[8].piece = 255; }, QUORVANE_PIECE_UNKNOWN},
      {[](auto& p) { p.pieces[8].square = 64; }, QUORVANE_SQUARE_RANGE},
      {[](auto& p) { p.pieces[8].square = p.pieces[9].square; }, QUORVANE_SQUARE_TAKEN},
      {[](auto& p) { p.pieces[8].piece = QUORVANE_BLACK_KING; }, QUORVANE_KING_COUNT},
      {[](auto& p) { p.pieces[0].piece = QUORVANE_WHITE_PAWN; }, QUORVANE_PAWN_ON_LAST_RANK},
      {[](auto& p) { p.side_to_move = 2; }, QUORVANE_SIDE_UNKNOWN},
  };
  for (const auto& [change, status] : cases) {
    quorvane_position changed = usual;
    change(changed);
    int type = -1;
    EXPECT_EQ(quorvane_position_type(&changed, &type), status) << quorvane_status_text(status);
    EXPECT_EQ(type, status == QUORVANE_OK ? 13 : -1);
  }
  for (int status = QUORVANE_OK; status <= QUORVANE_NO_CURVE; ++status)
    EXPECT_STRNE(quorvane_status_text(status), "unknown status");
  EXPECT_STREQ(quorvane_status_text(QUORVANE_NO_CURVE + 1), "unknown status");
}

TEST_F(EvaluatorOnBoard, EvaluatesManyUpToTheFirstThatIsNoFen) {
  const char* fens[] = {usualFen.c_str(), "8/2k5/2p5/2P5/2K5/3N4/8/8 w - - 0 1", "8/2k5 w", usualFen.c_str()};
  double values[] = {7, 7, 7, 7};
  std::size_t done = 9;
  EXPECT_EQ(quorvane_evaluate_fens(laws.openedCache(), fens, 4, values, &done), QUORVANE_FEN_BOARD);
  EXPECT_EQ(done, 2U);
  double alone = 0.0;
  EXPECT_EQ(quorvane_evaluate_fen(laws.opened(), fens[1], &alone), QUORVANE_OK);
  EXPECT_EQ(values[1], alone);
  EXPECT_EQ(values[2], 7.0);
  EXPECT_EQ(quorvane_evaluate_fens(laws.openedCache(), nullptr, 0, nullptr, nullptr), QUORVANE_OK);
  EXPECT_EQ(quorvane_evaluate_fens(nullptr, fens, 4, values, &done), QUORVANE_NULL_POINTER);
  EXPECT_EQ(done, 0U);
}

TEST_F(EvaluatorOnBoard, TakesNullPointersAndNamesOutOfRange) {
  quorvane_position position{};
  quorvane_explanation explanation;
  double value;
  int type;
  for (const int status :
       {quorvane_read_fen(nullptr, &position), quorvane_read_fen("", nullptr),
        quorvane_position_type(nullptr, &type), quorvane_evaluate(nullptr, &position, &value),
        quorvane_evaluate_fen(laws.opened(), nullptr, &value),
        quorvane_evaluate_cached(nullptr, &position, &value),
        quorvane_evaluate_fens(laws.openedCache(), nullptr, 1, &value, nullptr),
        quorvane_explain(laws.opened(), &position, nullptr),
        quorvane_explain(laws.opened(), nullptr, &explanation),
        quorvane_pawns(nullptr, nullptr, &position, &value),
        quorvane_pawns_fen(laws.openedCache(), nullptr, nullptr, &value),
        quorvane_expected_score(nullptr, 13, 1.0, &value)})
    EXPECT_EQ(status, QUORVANE_NULL_POINTER);
  EXPECT_EQ(quorvane_cache_new(nullptr), nullptr);
  quorvane_cache_free(nullptr);
  quorvane_network_close(nullptr);
  quorvane_calibration_close(nullptr);
  EXPECT_EQ(quorvane_calibration_open(nullptr, nullptr, nullptr, 0), nullptr);
  EXPECT_EQ(quorvane_network_knows(nullptr, 6), 0);
  EXPECT_EQ(quorvane_network_knows(laws.opened(), 14), 0);
  EXPECT_EQ(quorvane_network_knows(laws.opened(), 13), 1);
  EXPECT_EQ(quorvane_guess_castled(nullptr), QUORVANE_NULL_POINTER);
  EXPECT_EQ(quorvane_guess_castled(&position), QUORVANE_KING_COUNT);
  EXPECT_EQ(quorvane_network_knows_position(laws.opened(), nullptr), 0);
  EXPECT_EQ(quorvane_network_knows_position(laws.opened(), &position), 0);
  ASSERT_EQ(quorvane_read_fen(usualFen.c_str(), &position), QUORVANE_OK);
  EXPECT_EQ(quorvane_network_knows_position(laws.opened(), &position), 1);
  EXPECT_EQ(quorvane_network_knows_position(nullptr, &position), 0);

  EXPECT_STREQ(quorvane_feature_name(4, QUORVANE_WHITE_PAWN, 6), "outruns the enemy king");
  for (const auto& [piece, bit] : {std::pair{0, 9}, {6, 0}, {-1, 0}, {16, 0}, {0, 32}, {0, -1}})
    EXPECT_EQ(quorvane_feature_name(13, piece, bit), nullptr) << piece << ' ' << bit;
  EXPECT_EQ(quorvane_type_name(-1), nullptr);
  EXPECT_STREQ(quorvane_type_name(13), "material 70 and more");
}

TEST(EvaluatorNetworks, AreRefusedWithAReason) {
  const TemporaryFolder folder;
  writeFile("short.dat", networkBytes({1, 0, 1}));
  writeFile("text.dat", "what is this?");
  for (const auto& [name, reason] : {std::pair("short.dat", "short.dat: is cut short at byte 12"),
                                     {"text.dat", "text.dat: is no network file of version 1"},
                                     {".", ".: is a folder"},
                                     {"none.dat", "none.dat: cannot be opened: No such file or directory"},
                                     {nullptr, "a pointer is null that may not be"}}) {
    char error[100] = "";
    EXPECT_EQ(quorvane_network_open(name, error, sizeof error), nullptr) << reason;
    EXPECT_STREQ(error, reason);
  }
  char little[6] = "*****";
  EXPECT_EQ(quorvane_network_open("short.dat", little, 5), nullptr);
  EXPECT_EQ(std::string(little, sizeof little), std::string("shor\0\0", 6));
  EXPECT_EQ(quorvane_network_open("short.dat", nullptr, 100), nullptr);
}

TEST_F(EvaluatorOnBoard, MakesPawnsAndPointsByACalibration) {
  const std::string fen = "rnbqkbn1/pppppppp/8/8/8/8/PPPPPPPP/RNBQKBNR w KQq - 0 1";
  double value;
  double pawns;
  double score;
  ASSERT_EQ(quorvane_evaluate_fen(laws.opened(), fen.c_str(), &value), QUORVANE_OK);
  EXPECT_EQ(quorvane_pawns_fen(laws.openedCache(), nullptr, fen.c_str(), &pawns), QUORVANE_OK);
  EXPECT_EQ(pawns, 0.03 * value / 0.368208 + 5.0);
  const std::string print = fingerprintOf(networkTable);
  writeFile(
      "evaluator-laws.dat.calibration.json",
      "{\"generator\": \"quorvane-inspect calibration\", \"fingerprint\": \"" + print +
          "\",\n \"types\": [{\"steepness\": 5e-1, \"type\": 13}, {\"type\": 0, \"steepness\": null}]}");
  quorvane_calibration* const read = quorvane_calibration_open(laws.opened(), nullptr, nullptr, 0);
  ASSERT_NE(read, nullptr);
  EXPECT_EQ(quorvane_pawns_fen(laws.openedCache(), read, fen.c_str(), &pawns), QUORVANE_OK);
  EXPECT_EQ(pawns, 0.5 * value / 0.368208 + 5.0);
  EXPECT_EQ(quorvane_pawns_fen(laws.openedCache(), read, "4k3/8/8/8/8/8/8/R3K3 b", &pawns), QUORVANE_OK);
  EXPECT_EQ(pawns, -5.0);
  EXPECT_EQ(quorvane_expected_score(read, 13, 2.0, &score), QUORVANE_OK);
  EXPECT_DOUBLE_EQ(score, 1.0 / (1.0 + std::exp(-1.0)));
  for (const int type : {-1, 0, 5, 14}) {
    score = 7.0;
    EXPECT_EQ(quorvane_expected_score(read, type, 2.0, &score), QUORVANE_NO_CURVE);
    EXPECT_EQ(score, 7.0);
  }
  quorvane_calibration_close(read);
}

TEST_F(EvaluatorOnBoard, RefusesWhatIsNoCalibration) {
  const std::string head = R"({"generator":"quorvane-inspect calibration","fingerprint":")";
  const std::string fitting = head + fingerprintOf(networkTable) + R"(","types":[)";
  const std::string k = R"({"type":6,"steepness":)";
  constexpr const char* none = "is no calibration that quorvane-inspect has written";
  const std::pair<std::string, const char*> cases[] = {
      {fitting + k + "0.05}]}", ""},
      {"\r\n\t " + fitting + k + R"(1E+1,"bands":[true,false,null,"\u00e9\n",-0,0.0]}]} )", ""},
      {head + R"(0123456789abcdef","types":[]})", "is the calibration of another network"},
      {"", none},
      {"{}", none},
      {"[]", none},
      {R"({"generator":"something else"})", none},
      {fitting + k + "-0.05}]}", none},
      {fitting + k + "1e999}]}", none},
      {fitting + k + "nan}]}", none},
      {fitting + k + "0x1}]}", none},
      {fitting + k + "01}]}", none},
      {fitting + k + "1.}]}", none},
      {fitting + k + ".5}]}", none},
      {fitting + k + "+5}]}", none},
      {fitting + k + "\"5\"}]}", none},
      {fitting + R"({"type":14,"steepness":1}]})", none},
      {fitting + R"({"type":1.5,"steepness":1}]})", none},
      {fitting + R"({"type":6}]})", none},
      {fitting + k + "1},]}", none},
      {fitting + k + "1}", none},
      {fitting + k + "1}]} x", none},
      {fitting + k + R"(1,"x":"\q"}]})", none},
      {fitting + k + R"(1,"x":"\u12g4"}]})", none},
      {fitting + k + "1,\"x\":\"\n\"}]}", none},
      {fitting + k + "1,\"x\":\"", none},
      {std::string(1'000'000, '['), none},
  };
  for (const auto& [text, reason] : cases) {
    writeFile("one.json", text);
    char error[100] = "";
    quorvane_calibration* const read =
        quorvane_calibration_open(laws.opened(), "one.json", error, sizeof error);
    EXPECT_EQ(std::string(error), *reason == '\0' ? "" : std::string("one.json: ") + reason)
        << text.substr(0, 200);
    EXPECT_EQ(read != nullptr, *reason == '\0');
    quorvane_calibration_close(read);
  }
  char error[100] = "";
  EXPECT_EQ(quorvane_calibration_open(laws.opened(), nullptr, error, sizeof error), nullptr);
  EXPECT_STREQ(error, "evaluator-laws.dat.calibration.json: cannot be opened: No such file or directory");
}

}  // namespace
}  // namespace quorvane

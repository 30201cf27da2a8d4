// Any bytes pass as the text of a FEN tag. What load makes of them stands on the board, where every move can
// be made, described and taken back; the library for evaluating describes all of it alike, and takes no text
// for a FEN in which load sees other pieces.

#include <algorithm>
#include <utility>
#include <vector>

#include "fuzz/fuzz_target.h"
#include "fuzz/tested_board.h"
#include "support/evaluator_laws.h"
#include "support/files.h"

namespace quorvane {
namespace {

// The pieces of a position, each with its square, in a fixed order.
template <typename Position>
auto piecesOf(const Position& position) {
  std::vector<std::pair<std::int32_t, std::int32_t>> pieces;
  pieces.reserve(QUORVANE_MAX_PIECES);
  for (std::int32_t i = 0; i < position.count; ++i)
    pieces.emplace_back(position.pieces[i].square, position.pieces[i].piece);
  std::ranges::sort(pieces);
  return pieces;
}

void expectAgreement(const std::string& fen, EvaluatorLaws& laws) {
  PgnGame parsed;
  const bool hasKings = parsed.parseFen("FEN \"" + fen + "\"");
  quorvane_position position;
  quorvane_explanation explanation;
  if (quorvane_read_fen(fen.c_str(), &position) != QUORVANE_OK) return;
  const bool taken = quorvane_explain(laws.opened(), &position, &explanation) == QUORVANE_OK;
  require(taken == (hasKings && parsed.placement.fitsBoard()),
          "a well-formed FEN is taken if the board can hold it");
  if (!taken) return;
  Board::setupPosition(parsed.placement, parsed.sideToMove);
  require(piecesOf(position) == piecesOf(EvaluatorLaws::positionOnBoard()),
          "a FEN means the same pieces to all");
}

}  // namespace
}  // namespace quorvane

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace quorvane;
  enterScratchFolder();
  static TestedBoard board;
  static EvaluatorLaws laws;
  const auto describe = [] {
    board.describe();
    require(laws.broken() == nullptr, "the library describes what the board holds");
  };
  const std::string tag = "FEN " + std::string(reinterpret_cast<const char*>(data), size);
  PgnGame parsed;
  const std::size_t kings = parsed.parseFen(tag) ? 1 : 0;
  require(parsed.placement[whiteKingList].size() == kings &&
              parsed.placement[blackKingList].size() == kings &&
              parsed.placement.all().empty() == (kings == 0),
          "a position has two kings, a refusal leaves nothing");

  const std::size_t fen = tag.find('"') + 1;  // or all of it
  expectAgreement(tag.substr(fen, tag.find_first_of(std::string("\"\0", 2), fen) - fen), laws);

  writeFile("game.pgn", "[" + tag + "]");
  PgnDatabase database;
  database.load("game.pgn");
  board.setUp(*database.game(0));
  describe();
  for (const MoveRecord& move : board.moves()) {
    board.make(move);
    describe();
    board.unmake();
  }
  return 0;
}

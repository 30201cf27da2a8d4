// Any bytes pass as the text of a FEN tag. What load makes of them stands on the board, where every move can
// be made, described and taken back; a position and its colour-flipped mirror have the same words.

#include "fuzz/fuzz_target.h"
#include "fuzz/tested_board.h"

namespace quorvane {
namespace {

constexpr Square flip = squareAt(7, 0);  // of ranks, as an exclusive or

PgnGame flipped(const PgnGame& game) {
  PgnGame mirror;
  for (std::int32_t list = 0; list < placementListCount; ++list) {
    const std::int32_t otherSide = (list + placementListsPerSide) % placementListCount;
    for (const std::uint8_t square : game.placement[list]) mirror.placement.append(otherSide, square ^ flip);
  }
  mirror.sideToMove = 1 - game.sideToMove;
  return mirror;
}

}  // namespace
}  // namespace quorvane

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace quorvane;
  enterScratchFolder();
  static TestedBoard board;
  const std::string tag = "FEN " + std::string(reinterpret_cast<const char*>(data), size);
  PgnGame parsed;
  const std::size_t kings = parsed.parseFen(tag) ? 1 : 0;
  require(parsed.placement[whiteKingList].size() == kings &&
              parsed.placement[blackKingList].size() == kings &&
              parsed.placement.all().empty() == (kings == 0),
          "a position has two kings, a refusal leaves nothing");

  writeFile("game.pgn", "[" + tag + "]");
  PgnDatabase database;
  database.load("game.pgn");
  const PgnGame& game = *database.game(0);
  board.setUp(game);
  const auto words = board.words();
  for (const MoveRecord& move : board.moves()) {
    board.make(move);
    board.words();
    board.unmake();
  }
  board.setUp(flipped(game));
  const auto mirrored = board.words();
  for (std::size_t square = 0; square < squareCount; ++square) {
    require(mirrored[square ^ flip] == words[square], "a mirrored position has the same words");
  }
  return 0;
}

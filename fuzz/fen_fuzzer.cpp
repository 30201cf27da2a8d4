// Any bytes pass as the text of a FEN tag. What load makes of them stands on the board, where every move can
// be made, described and taken back.

#include "fuzz/fuzz_target.h"
#include "fuzz/tested_board.h"
#include "support/files.h"

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
  board.setUp(*database.game(0));
  board.describe();
  for (const MoveRecord& move : board.moves()) {
    board.make(move);
    board.describe();
    board.unmake();
  }
  return 0;
}

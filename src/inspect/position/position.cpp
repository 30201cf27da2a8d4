#include "inspect/position/position.h"

#include <cassert>

#include "board/board_fen.h"
#include "board/fen_fault.h"
#include "board/piece.h"
#include "inspect/common/fault.h"
#include "inspect/common/game_files.h"
#include "inspect/position/fen_fault.h"

namespace quorvane::inspect {

Origin Position::setFen(const std::string& fen, Rules rules) {
  const std::string given = "FEN \"" + fen + "\"";
  const auto refuse = [&](const std::string& wrong) {
    if (!wrong.empty()) throw Fault(given, wrong);
  };
  PgnGame game;
  if (rules == Rules::chess) {
    const StrictFen read(fen);
    refuse(faultIn(read));
    game.placement = read.placement();
    game.sideToMove = read.sideToMove();
  } else if (!game.parseFen(given)) {
    refuse("does not give each side exactly one king");
  }
  if (!game.placement.fitsBoard()) {
    refuse("has more than " + std::to_string(piecesPerSide) +
           " pieces on a side, two on one square or a pawn on its last rank");
  }
  setupPosition(game.placement, game.sideToMove);
  if (rules == Rules::chess) refuse(PositionFault::text());
  return {fen, {}, {}, {}};
}

Origin Position::setGame(const std::string& fileName, std::int32_t number, std::int32_t plies) {
  PgnDatabase database = loadGames(fileName);
  PgnGame* const game = database.game(number - 1);
  if (game == nullptr) {
    throw Fault(fileName, "has no game " + std::to_string(number) + "; the last is " +
                              std::to_string(gameCount(database)));
  }
  const std::string place = "game " + std::to_string(number);
  Origin origin{{}, tagValue(*game, "White"), tagValue(*game, "Black"), {}};
  setupPosition(game->placement, game->sideToMove);
  for (std::int32_t ply = 1; ply <= plies; ++ply) {
    DecodedMove move;
    if (!game->nextMove(move)) {
      throw Fault(fileName, place + " has no ply " + std::to_string(plies) + "; the last is " +
                                std::to_string(ply - 1));
    }
    if (!playGameMove(move)) {
      throw Fault(fileName, place + " has a move that cannot be played, ply " + std::to_string(ply));
    }
    if (ply != plies) continue;
    const std::int32_t before = ply - 1 + (game->sideToMove == black ? 1 : 0);
    origin.move = std::to_string(before / 2 + 1) + (before % 2 == 0 ? ". " : "... ");
    origin.move += game->tokens[static_cast<std::size_t>(game->tokenCursor - 1)];
  }
  origin.fen = BoardFen::text();
  return origin;
}

DescribedPosition Position::described() {
  assert(kings[white] != nullptr && kings[black] != nullptr);
  const auto hasCastled = [](Side side) { return static_cast<const King*>(kings[side])->castled; };
  const PositionSets sets{squaresOf, currentMove.sideToMove, {{hasCastled(black), hasCastled(white)}}};
  return {sets, quorvane::describe(sets)};
}

}  // namespace quorvane::inspect

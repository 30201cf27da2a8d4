#include "inspect/position/position.h"

#include <cassert>

#include "board/board_fen.h"
#include "board/castled_guess.h"
#include "board/fen_fault.h"
#include "board/piece.h"
#include "inspect/common/fault.h"
#include "inspect/common/game_files.h"
#include "inspect/common/text_columns.h"
#include "inspect/position/fen_fault.h"
#include "inspect/position/san.h"

namespace quorvane::inspect {

Origin Position::setFen(const std::string& fen, Rules rules, bool guessCastling) {
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
  for (const Side side : {black, white})
    static_cast<King*>(kings[side])->castled = guessCastling && looksCastled(squaresOf, side);
  return {fen, {}, {}, {}};
}

Origin Position::setGame(const std::string& fileName, std::int32_t number, std::int32_t plies) {
  GameText games = loadGameText(fileName);
  const PgnGame* const game = games.database.game(number - 1);
  if (game == nullptr) {
    throw Fault(fileName, "has no game " + std::to_string(number) + "; the last is " +
                              std::to_string(gameCount(games.database)));
  }
  GamePartsReader parts(games);
  for (std::int32_t before = 1; before < number; ++before) parts.next();
  MoveText text(parts.next().moves);
  const std::string place = "game " + std::to_string(number);
  Origin origin{{}, tagValue(*game, "White"), tagValue(*game, "Black"), {}};
  setupPosition(game->placement, game->sideToMove);
  for (std::int32_t played = 0; played < plies;) {
    const std::optional<MoveElement> element = text.next();
    if (!element) {
      throw Fault(fileName,
                  place + " has no ply " + std::to_string(plies) + "; the last is " + std::to_string(played));
    }
    if (const SanFault fault = SanMoves::play(*element); fault != SanFault::none) {
      throw Fault(fileName, place + " can be read up to ply " + std::to_string(played) + "; the next move, " +
                                printable(element->text, longestToken) + ", " + textOf(fault));
    }
    if (element->kind != MoveElement::move || ++played != plies) continue;
    const std::int32_t before = played - 1 + (game->sideToMove == black ? 1 : 0);
    origin.move = std::to_string(before / 2 + 1) + (before % 2 == 0 ? ". " : "... ");
    origin.move += element->text;
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

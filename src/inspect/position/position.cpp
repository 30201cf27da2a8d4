#include "inspect/position/position.h"

#include <cassert>

#include "board/castled_guess.h"
#include "board/fen_fault.h"
#include "board/piece.h"
#include "inspect/common/fault.h"
#include "inspect/common/game_files.h"
#include "inspect/common/text_columns.h"
#include "inspect/position/fen_fault.h"
#include "inspect/position/san_game.h"

namespace quorvane::inspect {

namespace {

std::optional<play::Position> chessPosition(const std::string& fen) {
  try {
    return play::Position(fen);
  } catch (const play::BadPosition&) {
    return {};  // in fields that say nothing of its value
  }
}

}  // namespace

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
  return {fen, {}, {}, {}, chessPosition(fen), {}};
}

Origin Position::setGame(const std::string& fileName, std::int32_t number, std::int32_t plies) {
  const std::unique_ptr<const GameText> text = loadGameText(fileName);
  if (static_cast<std::size_t>(number) > text->games.size()) {
    throw Fault(fileName, "has no game " + std::to_string(number) + "; the last is " +
                              std::to_string(text->games.size()));
  }
  const GameParts& parts = text->games[static_cast<std::size_t>(number) - 1];
  MoveText moves(parts.moves);
  SanGame replay(parts);
  const std::string place = "game " + std::to_string(number);
  if (!replay.hasStart()) throw Fault(fileName, place + " starts from no position of chess");
  const auto player = [&](std::string_view name) { return std::string(parts.tagValue(name).value_or("")); };
  Origin origin{{}, player("White"), player("Black"), {}, {}, {}};
  const std::int32_t first = replay.position().sideToMove == black ? 1 : 0;
  for (std::int32_t played = 0; played < plies;) {
    const std::optional<MoveElement> element = moves.next();
    if (!element) {
      throw Fault(fileName,
                  place + " has no ply " + std::to_string(plies) + "; the last is " + std::to_string(played));
    }
    if (const SanFault fault = replay.play(*element); fault != SanFault::none) {
      throw Fault(fileName, place + " can be read up to ply " + std::to_string(played) + "; the next move, " +
                                printable(element->text, longestToken) + ", " + textOf(fault));
    }
    if (element->kind != MoveElement::move || ++played != plies) continue;
    const std::int32_t before = played - 1 + first;
    origin.move = std::to_string(before / 2 + 1) + (before % 2 == 0 ? ". " : "... ");
    origin.move += element->text;
  }
  origin.fen = replay.position().fen();
  origin.position = replay.position();
  origin.earlierKeys = replay.earlierKeys();
  put(replay.position());
  return origin;
}

void Position::put(const PositionSets& position) {
  Placement placement;
  for (const Side side : {black, white}) {
    for (std::int32_t kind = 0; kind < pieceKindCount; ++kind) {
      for (const Square square : Squares(position.pieces[side][kind]))
        placement.append(side, static_cast<PieceKind>(kind), square);
    }
  }
  setupPosition(placement, position.sideToMove);
  for (const Side side : {black, white}) static_cast<King*>(kings[side])->castled = position.castled[side];
}

DescribedPosition Position::described() {
  assert(kings[white] != nullptr && kings[black] != nullptr);
  const auto hasCastled = [](Side side) { return static_cast<const King*>(kings[side])->castled; };
  const PositionSets sets{squaresOf, currentMove.sideToMove, {{hasCastled(black), hasCastled(white)}}};
  return {sets, quorvane::describe(sets)};
}

}  // namespace quorvane::inspect

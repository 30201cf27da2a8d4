#include "inspect/position.h"

#include "inspect/fault.h"
#include "inspect/game_files.h"
#include "learning/learner.h"

namespace quorvane {

void Position::setFen(const std::string& fen) {
  PgnGame game;
  const std::string given = "FEN \"" + fen + "\"";
  if (!game.parseFen(given)) throw Fault(given, "does not give each side exactly one king");
  if (!game.placement.fitsBoard()) {
    throw Fault(given, "has more than 16 pieces on a side, two on one square or a pawn on its last rank");
  }
  Learner::setupPosition(game.placement, game.sideToMove);
}

void Position::setGame(const std::string& fileName, std::int32_t number, std::int32_t plies) {
  PgnDatabase database = loadGames(fileName);
  PgnGame* const game = database.game(number - 1);
  if (game == nullptr) {
    throw Fault(fileName, "has no game " + std::to_string(number) + "; the last is " +
                              std::to_string(gameCount(database)));
  }
  const std::string place = "game " + std::to_string(number);
  Learner::setupPosition(game->placement, game->sideToMove);
  for (std::int32_t ply = 1; ply <= plies; ++ply) {
    std::int32_t fromRank;
    std::int32_t fromFile;
    std::int32_t toRank;
    std::int32_t toFile;
    std::int32_t kind;
    std::int32_t promotion;
    if (!game->nextMove(fromRank, fromFile, toRank, toFile, kind, promotion)) {
      throw Fault(fileName, place + " has no ply " + std::to_string(plies) + "; the last is " +
                                std::to_string(ply - 1));
    }
    if (!playGameMove(fromRank, fromFile, toRank, toFile, kind, promotion)) {
      throw Fault(fileName, place + " has a move that cannot be played, ply " + std::to_string(ply));
    }
  }
}

}  // namespace quorvane

#include "play/match/game.h"

#include <algorithm>

namespace quorvane::play {

namespace {

constexpr std::int32_t megabytes = 2;  // of each player

class UntilInterrupted : public Onlooker {
 public:
  explicit UntilInterrupted(const std::atomic<bool>& interrupted) : stop(interrupted) {}
  bool endsNow(std::uint64_t) override { return stop; }
  bool isEnough(const Finding&) override { return false; }

 private:
  const std::atomic<bool>& stop;
};

// Why the game is over where this position stands, with what White gets for it; null if it goes on. `keys`
// are those of the positions before it, since one that cannot come again.
const char* endOf(const Position& position, const std::vector<std::uint64_t>& keys, std::int32_t& points) {
  points = 1;
  if (legalMoves(position).empty()) {
    if (!position.inCheck()) return "stalemate";
    points = position.sideToMove == white ? 0 : 2;
    return "mate";
  }
  if (position.hasTooLittleMaterial()) return "insufficient material";
  if (position.halfmoves >= 100) return "fifty moves";
  return std::ranges::count(keys, position.key) >= 2 ? "threefold repetition" : nullptr;
}

}  // namespace

Players::Players(const Contender& first, const Contender& second, std::uint64_t nodes,
                 const std::atomic<bool>& interrupted)
    : tables{TranspositionTable(megabytes), TranspositionTable(megabytes)},
      players{{first, tables[0]}, {second, tables[1]}},
      stop(interrupted) {
  goal.nodes = nodes;
}

PlayedGame Players::play(const Opening& opening, bool firstIsWhite) {
  for (TranspositionTable& table : tables) table.clear();
  for (Player& player : players) player.search.clear();
  PlayedGame game;
  Position position = opening.start;
  std::vector<std::uint64_t> keys;
  const auto make = [&](Move move) {
    keys.push_back(position.key);
    position.make(move);
    if (position.halfmoves == 0) keys.clear();
  };
  for (const Move move : opening.moves) make(move);
  UntilInterrupted onlooker(stop);
  while (!stop) {
    const char* const end = endOf(position, keys, game.points);
    game.reason = end != nullptr                                          ? end
                  : opening.moves.size() + game.moves.size() >= mostMoves ? "300 plies"
                                                                          : "";
    if (*game.reason != '\0') break;
    Player& player = players[(position.sideToMove == white) == firstIsWhite ? 0 : 1];
    goal.devices = player.contender.devices;
    const Finding found = player.search.run(position, keys, goal, onlooker);
    game.moves.push_back({found.line[0], found.score});
    make(found.line[0]);
  }
  return game;
}

}  // namespace quorvane::play

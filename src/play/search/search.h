#ifndef QUORVANE_PLAY_SEARCH_SEARCH_H_
#define QUORVANE_PLAY_SEARCH_SEARCH_H_

#include <cstdint>
#include <limits>
#include <span>
#include <vector>

#include "play/search/devices.h"
#include "play/search/knowledge.h"
#include "play/search/move_order.h"
#include "play/search/score.h"
#include "play/search/transposition_table.h"

namespace quorvane::play {

// How far to search.
struct Goal {
  std::int32_t depth = mostPlies - 1;
  std::uint64_t nodes = std::numeric_limits<std::uint64_t>::max();
  std::int32_t mateInMoves = 0;  // ends where such a mate is found, if above 0
  std::vector<Move> amongMoves;  // at the root; all if empty
  std::uint32_t devices = allDevices;
};

// What a search has found; the score is that of the side to move at the root.
struct Finding {
  std::int32_t depth = 0;  // the last that was searched to its end
  std::int32_t deepest = 0;
  std::int32_t score = 0;
  std::uint64_t nodes = 0;
  std::int32_t permilleUsed = 0;
  std::vector<Move> line;  // empty only where there is no legal move
};

// Looks on while a search runs; this one lets it run.
class Onlooker {
 public:
  virtual ~Onlooker() = default;
  // Every few hundred nodes: has it to end?
  virtual bool endsNow(std::uint64_t /*nodes*/) { return false; }
  // A depth has been searched: is that enough?
  virtual bool isEnough(const Finding& /*finding*/) { return false; }
};

// Alpha-beta search by iterative deepening (Slate and Atkin 1977).
class Search {
 public:
  Search(Judge& judging, TranspositionTable& remembering) : judge(judging), table(remembering) {}

  // Searches the position; `earlier` are the keys of those that led to it since the last move that cannot be
  // taken back, itself not among them. The same goal gives the same finding, whatever the machine, as long as
  // the onlooker does not end it.
  Finding run(const Position& position, std::span<const std::uint64_t> earlier, const Goal& wanted,
              Onlooker& onlooker);

  // Forgets what was learned of moves; the table forgets by itself.
  void clear() { quietMoves.clear(); }

 private:
  struct Line {
    Table<Move, mostPlies> moves;
    std::int32_t length = 0;
  };

  std::int32_t searchRoot(const Position& position, std::int32_t depth, std::int32_t before);
  std::int32_t search(const Position& position, std::int32_t alpha, std::int32_t beta, std::int32_t depth,
                      std::int32_t ply);
  std::int32_t searchMoves(const Position& position, std::int32_t alpha, std::int32_t beta,
                           std::int32_t depth, std::int32_t ply, const Remembered& known);
  std::int32_t quiesce(const Position& position, std::int32_t alpha, std::int32_t beta, std::int32_t ply);
  std::int32_t reduction(std::int32_t depth, std::int32_t moveCount) const;

  bool uses(Device device) const { return (goal->devices & device) != 0; }
  bool countNode(std::int32_t ply);
  bool isDrawn(const Position& position) const;
  // What the table has of a position, as told from this ply; nothing if it is not known.
  Remembered recall(const Position& position, std::int32_t ply) const;
  void remember(const Position& position, Move move, std::int32_t score, std::int32_t judgement,
                std::int32_t depth, Bound bound, std::int32_t ply);
  // Does what is known of a position spare its search?
  static bool settles(const Remembered& known, std::int32_t depth, std::int32_t alpha, std::int32_t beta);
  void extendLine(std::int32_t ply, Move move);

  Judge& judge;
  TranspositionTable& table;
  QuietMoves quietMoves;

  // Of the search that runs.
  const Goal* goal = nullptr;
  Onlooker* watching = nullptr;
  std::uint64_t nodes = 0;
  std::int32_t deepest = 0;
  bool ended = false;
  Move firstAtRoot{};
  std::vector<std::uint64_t> keys;  // of the positions that led here
  std::size_t rootKeys = 0;         // how many of them stand before the root
  Table<Line, mostPlies> lines;     // the best found from each ply on
};

}  // namespace quorvane::play

#endif  // QUORVANE_PLAY_SEARCH_SEARCH_H_

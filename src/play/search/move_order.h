#ifndef QUORVANE_PLAY_SEARCH_MOVE_ORDER_H_
#define QUORVANE_PLAY_SEARCH_MOVE_ORDER_H_

#include <cstdint>

#include "board/table.h"
#include "play/position/position.h"
#include "play/search/devices.h"

namespace quorvane::play {

// How often each quiet move, by its squares, has been good elsewhere in the search, deeper searches counting
// more (the history heuristic, Schaeffer 1989).
class QuietMoves {
 public:
  // For a new search: forgets half of it.
  void fade();
  void clear() { *this = {}; }

  // `move` refuted the last one, and those tried before it did not.
  void reward(Side side, Move move, const MoveList& triedBefore, std::int32_t depth);

  // From -limit to limit.
  std::int32_t historyOf(Side side, Move move) const { return history[side][move.from][move.to]; }
  static constexpr std::int32_t limit = 16384;

 private:
  void change(Side side, Move move, std::int32_t by);

  Table<Table<Table<std::int16_t, squareCount>, squareCount>, 2> history{};
};

// The moves of a node one after the other, those that promise most first: the remembered one, winning and
// even captures by what they take (MVV-LVA) and promotions, quiet moves by their history, losing captures.
class OrderedMoves {
 public:
  // In a quiescence search of captures and promotions alone; all if the king is attacked.
  OrderedMoves(const Position& position, Move remembered, const QuietMoves& quietMoves, bool forcing,
               std::uint32_t devices);

  // The next legal move; no move at the end.
  Move next();
  // Is the one that was given last a capture that loses material?
  bool isLosing() const { return lastPromise < -QuietMoves::limit; }

 private:
  std::int32_t promiseOf(Move move, Move remembered, const QuietMoves& quietMoves,
                         std::uint32_t devices) const;

  const Position& position;
  MoveList moves;
  Table<std::int32_t, MoveList::capacity> promises;
  Table<std::uint16_t, MoveList::capacity> places;  // in `moves`, of what is left
  std::int32_t left = 0;
  std::int32_t lastPromise = 0;
};

}  // namespace quorvane::play

#endif  // QUORVANE_PLAY_SEARCH_MOVE_ORDER_H_

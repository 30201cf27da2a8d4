#ifndef QUORVANE_INSPECT_POSITION_LOOK_AHEAD_H_
#define QUORVANE_INSPECT_POSITION_LOOK_AHEAD_H_

#include <cstdint>
#include <span>
#include <string>
#include <vector>

#include "play/search/search.h"

namespace quorvane::inspect {

// What a search has found of a position, as the side to move sees it.
struct Searched {
  std::uint64_t nodes = 0;
  std::int32_t depth = 0;
  double pawns = 0.0;            // of the network and the material; 0 where it mates or is mated
  std::int32_t movesToMate = 0;  // below 0 where the side to move is mated in so many; 0 if nobody is seen to
  bool isOver = false;           // mate or stalemate
  std::vector<std::string> moves;  // that it expects, in standard notation
};

// Searches positions to so many nodes each, and so gives the same on every machine.
class LookAhead {
 public:
  // By the network file and the calibration file, else the one beside the network. Throws a Fault.
  LookAhead(const std::string& network, const std::string& calibration, std::uint64_t nodes);
  LookAhead(const LookAhead&) = delete;
  LookAhead& operator=(const LookAhead&) = delete;

  // `earlier` are the keys of the positions of the game before it.
  Searched at(const play::Position& position, std::span<const std::uint64_t> earlier);
  // Before another game: nothing that was seen matters any more.
  void forget();

 private:
  play::Knowledge knowledge;
  play::Judge judge;
  play::TranspositionTable table;
  play::Search search;
  play::Goal goal;
};

}  // namespace quorvane::inspect

#endif  // QUORVANE_INSPECT_POSITION_LOOK_AHEAD_H_

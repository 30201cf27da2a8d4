#ifndef QUORVANE_FUZZ_TESTED_BOARD_H_
#define QUORVANE_FUZZ_TESTED_BOARD_H_

#include <cstdint>
#include <vector>

#include "board/piece.h"
#include "learning/learner.h"

namespace quorvane {

// The board, held to its laws whatever is done to it: the process ends where one does not hold.
class TestedBoard : public Learner {
 public:
  void setUp(const PgnGame& game);

  // The pseudo-legal moves of the side to move, in the order of generation, but for captures of a king, which
  // no game comes to.
  std::vector<MoveRecord> moves();

  void make(const MoveRecord& move);
  void unmake();

  // Plays `wanted`, one of `moves`, as a game file names it, by what of its ranks and files the four bits of
  // `named` tell and by a promotion code. Nothing is made where that is not legal.
  void play(const std::vector<MoveRecord>& moves, const MoveRecord& wanted, std::uint32_t named,
            std::int32_t promotion);

  // Classifies the position and computes its words.
  void describe();

  std::int32_t depth() const { return history->depth; }

 private:
  static void holds(const char* brokenLaw);

  std::vector<std::vector<std::uint64_t>> states;  // before each made move
};

}  // namespace quorvane

#endif  // QUORVANE_FUZZ_TESTED_BOARD_H_

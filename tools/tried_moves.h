#ifndef QUORVANE_TOOLS_TRIED_MOVES_H_
#define QUORVANE_TOOLS_TRIED_MOVES_H_

#include <cstdint>
#include <string>
#include <vector>

#include "board/board.h"
#include "tools/seeded_random.h"

namespace quorvane {

// A pseudo-legal move and what came of making it. The score, which only legal moves have, is in thousandths
// of a pawn, the more the better.
struct TriedMove {
  MoveRecord move;
  std::int32_t score = 0;
  bool legal = false;
  bool check = false;
  bool mate = false;
};

// The moves of the position on the board; pawns promote to queens only. Needs a position that a set-up has
// put there, and leaves it as it was.
class TriedMoves : public Board {
 public:
  // Takes up the position's moves in place of the former ones, with noise of 0 to noise - 1 in their scores.
  void tryAll(SeededRandom& random, std::int32_t noise);

  // The legal move with the highest score, but for those whose text Board::playGameMove would not take; null
  // if there is none. Valid until the next tryAll.
  const TriedMove* best() const;
  // The text of a move that best has given.
  std::string san(const TriedMove& chosen) const;

  static bool hasLegalMove();

 private:
  static std::int32_t cheapestTaker(const Piece& piece);
  static std::int32_t riskOf(Piece& piece);
  static void tryOut(TriedMove& tried, bool ending);
  static bool areTwins(const TriedMove& a, const TriedMove& b);
  bool isPlayable(const TriedMove& tried) const;
  std::string origin(const TriedMove& chosen) const;

  std::vector<TriedMove> moves;
};

}  // namespace quorvane

#endif  // QUORVANE_TOOLS_TRIED_MOVES_H_

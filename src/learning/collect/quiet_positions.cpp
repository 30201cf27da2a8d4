#include "learning/collect/quiet_positions.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>

#include "board/piece.h"
#include "board/ring.h"
#include "board/table.h"

namespace quorvane {

namespace {

// In thousandths of a pawn.
constexpr std::int32_t mostOneSided = 10000;  // positions are taken below this difference of material
constexpr std::int32_t quietMargin = 1000;    // and if it changes by less than this within two or four plies

// With W and B the sums of the sides' material over all positions of a game:
//
//   dominance = (max(W, B) / min(W, B) - 0.95) * 5.0     rounded to 32 bits
//   target    = depth / total * result * dominance * 150.0
constexpr double ratioOffset = 0.95;
constexpr double dominanceScale = 5.0;
constexpr float targetScale = 150.0F;

// How one-sided the material was over the whole game, whoever won: 0.25 for equal sums. Infinite or not a
// number if a side had nothing but its king all along.
float dominanceOf(std::int64_t whiteSum, std::int64_t blackSum) {
  const auto [less, more] = std::minmax({static_cast<double>(whiteSum), static_cast<double>(blackSum)});
  return static_cast<float>((more / less - ratioOffset) * dominanceScale);
}

// The value for White of a position at `depth` of `total` plies. What is not finite counts as 0, and nothing
// else leaves the range: a side's material sums are no more than some hundred thousand times the other's.
std::int32_t targetOf(std::int32_t depth, std::int32_t total, std::int32_t result, float dominance) {
  const double value = static_cast<double>(depth) / static_cast<double>(total) * static_cast<double>(result) *
                       static_cast<double>(dominance) * static_cast<double>(targetScale);
  return std::isfinite(value) ? static_cast<std::int32_t>(value) : 0;
}

// Takes a position by its difference of material and those two and four plies later in the game, walking
// backwards.
class QuietFilter {
 public:
  bool takes(std::int32_t difference) const {
    return difference < mostOneSided &&
           (std::abs(difference - later[1]) < quietMargin || std::abs(difference - later[3]) < quietMargin);
  }

  void remember(std::int32_t difference) {
    for (std::int32_t ply = 3; ply > 0; --ply) later[ply] = later[ply - 1];
    later[0] = difference;
  }

 private:
  Table<std::int32_t, 4> later{};  // one to four plies later; 0 behind the end of the game
};

// The material of both sides along a game.
class MaterialLine {
 public:
  MaterialLine(Piece* whiteKing, Piece* blackKing) {
    for (const Piece& piece : Ring(whiteKing)) now[white] += piece.material;
    for (const Piece& piece : Ring(blackKing)) now[black] += piece.material;
  }

  // Goes on to the position at `depth`, which `move` has led to.
  void follow(std::int32_t depth, const UndoRecord& move) {
    const Piece& mover = *move.movedPiece;
    now[opponent(mover.side)] -= move.capturedPiece->material;  // nothing for the empty square
    if (move.undoKind == enPassantCapture) now[opponent(mover.side)] -= move.auxPiece->material;
    if (move.undoKind >= promoteToQueen) now[mover.side] += mover.material - move.auxPiece->material;
    sums[white] += now[white];
    sums[black] += now[black];
    differences[depth] = std::abs(now[white] - now[black]);
  }

  // Over all positions followed.
  std::int64_t sum(Side side) const { return sums[side]; }
  std::int32_t differenceAt(std::int32_t depth) const { return differences[depth]; }

 private:
  Table<std::int32_t, 2> now{};
  Table<std::int64_t, 2> sums{};
  Table<std::int32_t, historyCapacity> differences{};
};

}  // namespace

bool QuietPositions::forEach(PgnGame& game, std::int32_t result, const Visit& visit) {
  setupPosition(game.placement, game.sideToMove);
  MaterialLine material(kings[white], kings[black]);
  for (DecodedMove move; game.nextMove(move);) {
    if (!playGameMove(move)) return false;
    material.follow(history->depth, history->record(history->depth));
  }
  const std::int32_t total = history->depth;
  if (total < shortestGame) return true;

  const float dominance = dominanceOf(material.sum(white), material.sum(black));
  QuietFilter filter;
  for (; history->depth > 0; unmakeMove()) {
    const std::int32_t difference = material.differenceAt(history->depth);
    if (filter.takes(difference)) {
      const std::int32_t target = targetOf(history->depth, total, result, dominance);
      visit(currentMove.sideToMove == white ? target : -target);
    }
    filter.remember(difference);
  }
  return true;
}

}  // namespace quorvane

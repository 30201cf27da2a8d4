#include <cmath>
#include <cstdlib>
#include <iostream>

#include "board/piece.h"
#include "learning/learner.h"

namespace quorvane {

namespace {

// In thousandths of a pawn.
constexpr std::int32_t mostOneSided = 10000;  // positions are taken below this difference of material
constexpr std::int32_t quietMargin = 1000;    // and if it changes by less than this within two or four plies

constexpr std::int32_t shortestGame = 11;  // plies

// How one-sided the material was over the whole game, whoever won: 0.25 for equal sums. Infinite or not a
// number if a side had nothing but its king all along.
float dominanceOf(std::int64_t whiteSum, std::int64_t blackSum) {
  const auto w = static_cast<double>(whiteSum);
  const auto b = static_cast<double>(blackSum);
  const double ratio = whiteSum > blackSum ? w / b : b / w;
  return static_cast<float>((ratio - 0.95) * 5.0);
}

// The value for White of a position at `depth` of `total` plies. What is not finite counts as 0, and nothing
// else leaves the range: a side's material sums are no more than some hundred thousand times the other's.
std::int32_t targetOf(std::int32_t depth, std::int32_t total, std::int32_t result, float dominance) {
  constexpr float scale = 150.0F;
  const double value = static_cast<double>(depth) / static_cast<double>(total) * static_cast<double>(result) *
                       static_cast<double>(dominance) * static_cast<double>(scale);
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

std::int32_t materialOf(Piece* king) {
  std::int32_t material = 0;
  forEachInRing(king, [&](const Piece& piece) { material += piece.material; });
  return material;
}

void describeSide(Piece* king, std::vector<PieceConfiguration>& list) {
  forEachInRing(king, [&](const Piece& piece) {
    list.push_back({piece.configuration, static_cast<std::uint8_t>(piece.kind)});
  });
}

}  // namespace

void Learner::collectSamples(PgnDatabase& database) {
  for (SampleSet& set : sampleSets) set.clear();
  std::cout << "Processing pgn games: ";
  PgnGame* game;
  for (std::int32_t index = 0; (game = database.game(index)) != nullptr; ++index) {
    const std::int32_t result = game->result();
    if (result == noResult) continue;
    collectGame(*game, result);
    std::cout << "." << std::flush;
  }
  std::cout << " done.\n\n";
}

void Learner::collectGame(PgnGame& game, std::int32_t result) {
  setupPosition(game.placement, game.sideToMove);
  std::int64_t whiteSum = 0;
  std::int64_t blackSum = 0;
  bool ok = true;
  std::int32_t fromRank;
  std::int32_t fromFile;
  std::int32_t toRank;
  std::int32_t toFile;
  std::int32_t kind;
  std::int32_t promotion;
  while (ok && game.nextMove(fromRank, fromFile, toRank, toFile, kind, promotion)) {
    ok = playGameMove(fromRank, fromFile, toRank, toFile, kind, promotion);
    whiteSum += materialOf(kings[white]);
    blackSum += materialOf(kings[black]);
  }
  const std::int32_t total = history->depth;
  if (!ok || total < shortestGame) return;

  const float dominance = dominanceOf(whiteSum, blackSum);
  QuietFilter filter;
  for (; history->depth > 0; unmakeMove()) {
    const std::int32_t difference = std::abs(materialOf(kings[white]) - materialOf(kings[black]));
    if (filter.takes(difference)) {
      currentSet = &sampleSets[network.classifyPosition(Network::classifyBoard, false)];
      const std::int32_t target = targetOf(history->depth, total, result, dominance);
      const Side side = currentMove.sideToMove;
      addSample(side == white ? target : -target, side);
    }
    filter.remember(difference);
  }
}

void Learner::addSample(std::int32_t target, Side side) {
  Network::computeConfigurations();
  Sample sample;
  describeSide(kings[side], sample.ownList);
  describeSide(kings[1 - side], sample.opposingList);
  sample.target = target;
  currentSet->append(sample);
}

}  // namespace quorvane

#include <iostream>

#include "configurations/side_configurations.h"
#include "learning/collect/quiet_positions.h"
#include "learning/learner.h"

namespace quorvane {

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
  QuietPositions::forEach(game, result, [this](std::int32_t target) {
    currentSet = &sampleSets[network.classifyPosition(Network::classifyBoard, false)];
    addSample(target, currentMove.sideToMove);
  });
}

void Learner::addSample(std::int32_t target, Side side) {
  Network::computeConfigurations();
  const SideConfigurations own(kings[side]);
  const SideConfigurations opposing(kings[opponent(side)]);
  currentSet->append(own.list(), opposing.list(), target);
}

}  // namespace quorvane

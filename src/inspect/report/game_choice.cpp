#include "inspect/report/game_choice.h"

#include <algorithm>
#include <functional>
#include <map>

#include "inspect/common/mean.h"

namespace quorvane::inspect {

namespace {

// The games by their mean squared difference between score and expected score, the greatest first.
std::vector<std::uint32_t> gamesByDifference(const Validation& validation, const Calibration& calibration) {
  std::map<std::uint32_t, Mean> differences;
  for (PositionType type = 0; type < positionTypeCount; ++type) {
    for (const Prediction& prediction : validation.byType[type]) {
      const auto expected = calibration.expectedScore(type, prediction.value);
      if (!expected) continue;
      const double difference = prediction.score() - *expected;
      differences[prediction.game].add(difference * difference);
    }
  }
  std::vector<std::uint32_t> games;
  games.reserve(differences.size());
  for (const auto& [game, difference] : differences) games.push_back(game);
  std::ranges::stable_sort(games, std::greater(),
                           [&](std::uint32_t game) { return *differences.at(game).value(); });
  return games;
}

}  // namespace

std::vector<std::uint32_t> chooseGames(const Validation& validation, const Calibration& calibration,
                                       std::size_t count) {
  std::vector<std::uint32_t> games = gamesByDifference(validation, calibration);
  if (games.size() <= count) return games;
  const std::size_t worst = count / 2;
  const std::size_t others = count - worst;
  for (std::size_t number = 1; number <= others; ++number) {
    games[worst + number - 1] = games[worst - 1 + (games.size() - worst) * number / others];
  }
  games.resize(count);
  return games;
}

}  // namespace quorvane::inspect

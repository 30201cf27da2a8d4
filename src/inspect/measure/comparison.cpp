#include "inspect/measure/comparison.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <random>
#include <vector>

namespace quorvane::inspect {

namespace {

constexpr std::size_t draws = 1000;
constexpr std::int32_t allTypes = positionTypeCount;  // the row of their sums

// Differences of the two losses over the samples of one game and one type, or of all types.
struct GameDifference {
  double squares = 0.0;
  double logLoss = 0.0;
  double samples = 0.0;

  void add(const GameDifference& other) {
    squares += other.squares;
    logLoss += other.logLoss;
    samples += other.samples;
  }
};

struct PlacedDifference {
  PositionType type;
  GameDifference difference;
};

using Differences = std::array<GameDifference, positionTypeCount + 1>;

// The mean and the 2.5th and 97.5th of 100 parts of what the draws gave.
PairedDifference intervalOf(double mean, std::vector<double> drawn) {
  if (drawn.empty()) return {};
  std::ranges::sort(drawn);
  const std::size_t tail = drawn.size() / 40;
  return {mean, drawn[tail], drawn[drawn.size() - 1 - tail]};
}

// What one draw of games brings together.
Differences drawGames(const std::vector<std::vector<PlacedDifference>>& games, std::mt19937_64& random) {
  Differences sums{};
  for (std::size_t count = 0; count < games.size(); ++count) {
    for (const auto& [type, difference] : games[static_cast<std::size_t>(random() % games.size())]) {
      sums[static_cast<std::size_t>(type)].add(difference);
      sums[allTypes].add(difference);
    }
  }
  return sums;
}

}  // namespace

Comparison compare(const Contender& first, const Contender& second) {
  Comparison comparison;
  std::vector<std::vector<PlacedDifference>> games(first.validation.games);
  for (PositionType type = 0; type < positionTypeCount; ++type) {
    if (first.validation.patterns[type] == 0 && second.validation.patterns[type] == 0) continue;
    ComparedType& compared = comparison.byType[type];
    const std::vector<Prediction>& predictions = first.validation.byType[type].predictions();
    for (std::size_t sample = 0; sample < predictions.size(); ++sample) {
      const Prediction& one = predictions[sample];
      const Score ofFirst = scoreOf(one, one.value, first.curves.types[type].steepness);
      const Prediction& other = second.validation.byType[type].predictions()[sample];
      const Score ofSecond = scoreOf(other, other.value, second.curves.types[type].steepness);
      compared.first.add(ofFirst);
      compared.second.add(ofSecond);
      ++compared.samples;
      if (one.outcome != 0) ++compared.decided;
      std::vector<PlacedDifference>& game = games[one.game];
      if (game.empty() || game.back().type != type) game.push_back({type, {}});
      game.back().difference.add(
          {ofFirst.squares - ofSecond.squares, ofFirst.logLoss - ofSecond.logLoss, 1.0});
    }
    comparison.all.first.add(compared.first);
    comparison.all.second.add(compared.second);
    comparison.all.samples += compared.samples;
    comparison.all.decided += compared.decided;
  }

  // The same draws for every type, and the same in every run.
  std::mt19937_64 random(1);
  std::array<std::array<std::vector<double>, 2>, positionTypeCount + 1> drawn;
  for (std::size_t draw = 0; draw < draws; ++draw) {
    const Differences sums = drawGames(games, random);
    for (std::size_t row = 0; row < sums.size(); ++row) {
      if (sums[row].samples == 0.0) continue;
      drawn[row][0].push_back(sums[row].squares / sums[row].samples);
      drawn[row][1].push_back(sums[row].logLoss / sums[row].samples);
    }
  }
  const auto finish = [&](ComparedType& compared, std::size_t row) {
    if (compared.samples == 0) return;
    const auto count = static_cast<double>(compared.samples);
    compared.f = intervalOf((compared.first.squares - compared.second.squares) / count, drawn[row][0]);
    compared.logLoss = intervalOf((compared.first.logLoss - compared.second.logLoss) / count, drawn[row][1]);
  };
  for (PositionType type = 0; type < positionTypeCount; ++type) {
    finish(comparison.byType[type], static_cast<std::size_t>(type));
  }
  finish(comparison.all, allTypes);
  return comparison;
}

std::string verdict(const Contender& first, const Contender& second, const Comparison& comparison) {
  const PairedDifference& f = comparison.all.f;
  const PairedDifference& logLoss = comparison.all.logLoss;
  if (comparison.all.samples == 0) return "Neither network has patterns for any position of these games.";
  if (!f.tells() && !logLoss.tells()) return "These games cannot tell which is better.";
  const auto better = [&](const PairedDifference& difference) {
    return difference.mean > 0.0 ? second.name : first.name;
  };
  if (!logLoss.tells()) return better(f) + " is better by f(w); by log loss these games cannot tell.";
  if (!f.tells()) return better(logLoss) + " is better by log loss; by f(w) these games cannot tell.";
  if (better(f) == better(logLoss)) return better(f) + " is better, by f(w) and by log loss.";
  return better(f) + " is better by f(w), " + better(logLoss) + " by log loss.";
}

}  // namespace quorvane::inspect

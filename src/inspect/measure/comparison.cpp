#include "inspect/measure/comparison.h"

#include <algorithm>
#include <array>
#include <cassert>
#include <cstdint>
#include <random>
#include <utility>
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

// What the samples of one game have to say, type by type.
using Game = std::vector<std::pair<PositionType, GameDifference>>;

using Differences = std::array<GameDifference, positionTypeCount + 1>;

// Sums the scores of both networks up, and gives their differences game by game.
std::vector<Game> sumUp(const Contender& first, const Contender& second, Comparison& comparison) {
  std::vector<Game> games(first.validation.games);
  for (PositionType type = 0; type < positionTypeCount; ++type) {
    if (first.validation.patterns[type] == 0 && second.validation.patterns[type] == 0) continue;
    ComparedType& compared = comparison.byType[type];
    const Predictions& predictions = first.validation.byType[type];
    assert(predictions.size() == second.validation.byType[type].size());
    for (std::size_t sample = 0; sample < predictions.size(); ++sample) {
      const Prediction& one = predictions[sample];
      const Score ofFirst = scoreOf(one, one.value, first.curves.types[type].steepness);
      const Prediction& other = second.validation.byType[type][sample];
      const Score ofSecond = scoreOf(other, other.value, second.curves.types[type].steepness);
      compared.first.add(ofFirst);
      compared.second.add(ofSecond);
      ++compared.samples;
      if (one.outcome != 0) ++compared.decided;
      Game& game = games[one.game];
      if (game.empty() || game.back().first != type) game.push_back({type, {}});
      game.back().second.add({ofFirst.squares - ofSecond.squares, ofFirst.logLoss - ofSecond.logLoss, 1.0});
    }
    comparison.all.first.add(compared.first);
    comparison.all.second.add(compared.second);
    comparison.all.samples += compared.samples;
    comparison.all.decided += compared.decided;
  }
  return games;
}

// What one draw of games brings together.
Differences drawGames(const std::vector<Game>& games, std::mt19937_64& random) {
  Differences sums{};
  for (std::size_t count = 0; count < games.size(); ++count) {
    for (const auto& [type, difference] : games[static_cast<std::size_t>(random() % games.size())]) {
      sums[static_cast<std::size_t>(type)].add(difference);
      sums[allTypes].add(difference);
    }
  }
  return sums;
}

// The mean of what was drawn, and its 2.5th and 97.5th of 100 parts.
PairedDifference intervalOf(double mean, std::vector<double> drawn) {
  if (drawn.empty()) return {};
  std::ranges::sort(drawn);
  const std::size_t tail = drawn.size() / 40;
  return {mean, drawn[tail], drawn[drawn.size() - 1 - tail]};
}

}  // namespace

Comparison compare(const Contender& first, const Contender& second) {
  Comparison comparison;
  const std::vector<Game> games = sumUp(first, second, comparison);

  // The same draws for every type, and the same in every run.
  std::mt19937_64 random(1);
  struct Drawn {
    std::vector<double> squares;
    std::vector<double> logLoss;
  };
  std::array<Drawn, positionTypeCount + 1> drawn;
  for (std::size_t draw = 0; draw < draws; ++draw) {
    const Differences sums = drawGames(games, random);
    for (std::size_t row = 0; row < sums.size(); ++row) {
      if (sums[row].samples == 0.0) continue;
      drawn[row].squares.push_back(sums[row].squares / sums[row].samples);
      drawn[row].logLoss.push_back(sums[row].logLoss / sums[row].samples);
    }
  }
  for (PositionType row = 0; row <= allTypes; ++row) {
    ComparedType& compared = row == allTypes ? comparison.all : comparison.byType[row];
    if (compared.samples == 0) continue;
    const auto count = static_cast<double>(compared.samples);
    const Drawn& drawnOfRow = drawn[static_cast<std::size_t>(row)];
    compared.f = intervalOf((compared.first.squares - compared.second.squares) / count, drawnOfRow.squares);
    compared.logLoss =
        intervalOf((compared.first.logLoss - compared.second.logLoss) / count, drawnOfRow.logLoss);
  }
  return comparison;
}

std::string conclusion(const Contender& first, const Contender& second, const Comparison& comparison) {
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

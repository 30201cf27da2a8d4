#include "play/match/match_score.h"

#include <algorithm>
#include <cmath>

namespace quorvane::play {

namespace {

constexpr double quantile = 1.959963984540054;  // of the normal distribution, for 95 %
constexpr double farthest = 1200.0;

std::string whole(double number) {
  return std::to_string(std::lround(number));
}

}  // namespace

void MatchScore::addPair(std::int32_t one, std::int32_t other) {
  for (const std::int32_t points : {one, other}) ++(points == 2 ? wins : points == 1 ? draws : losses);
  ++pairs[one + other];
}

std::int64_t MatchScore::pairCount() const {
  std::int64_t count = 0;
  for (const std::int64_t n : pairs) count += n;
  return count;
}

double MatchScore::mean() const {
  const std::int64_t games = 2 * pairCount();
  return games == 0 ? 0.5 : static_cast<double>(2 * wins + draws) / static_cast<double>(2 * games);
}

double MatchScore::variance() const {
  const auto around = [this](double added) {
    double count = 0.0;
    double sum = 0.0;
    for (std::int32_t i = 0; i < 5; ++i) {
      const double n = static_cast<double>(pairs[i]) + added;
      const double distance = i / 4.0 - mean();
      count += n;
      sum += n * distance * distance;
    }
    return sum / count;
  };
  const bool allTheSame = std::ranges::count(pairs, 0) >= 4;
  return around(allTheSame ? 0.5 : 0.0);
}

double eloOf(double score) {
  if (score <= scoreOf(-farthest)) return -farthest;
  if (score >= scoreOf(farthest)) return farthest;
  return 400.0 * std::log10(score / (1.0 - score));
}

double scoreOf(double elo) {
  return 1.0 / (1.0 + std::pow(10.0, -elo / 400.0));
}

EloInterval eloInterval(const MatchScore& score) {
  const auto pairs = static_cast<double>(std::max<std::int64_t>(score.pairCount(), 1));
  const double reach = quantile * std::sqrt(score.variance() / pairs);
  return {eloOf(score.mean() - reach), eloOf(score.mean()), eloOf(score.mean() + reach)};
}

double logLikelihoodRatio(const MatchScore& score, double elo0, double elo1) {
  const double low = scoreOf(elo0);
  const double high = scoreOf(elo1);
  const auto pairs = static_cast<double>(score.pairCount());
  return pairs * (high - low) * (2.0 * score.mean() - low - high) / (2.0 * score.variance());
}

std::string verdict(const MatchScore& score) {
  const EloInterval interval = eloInterval(score);
  const auto stronger = [](const std::string& who, double from, double to) {
    return who + " is stronger, by " + whole(from) + " to " + whole(to) + " Elo; 95 % sure";
  };
  if (interval.low > 0.0) return stronger("A", interval.low, interval.high);
  if (interval.high < 0.0) return stronger("B", -interval.high, -interval.low);
  const double distance = score.mean() - 0.5;
  if (distance == 0.0 || score.pairCount() == 0) return "these games cannot tell; they stand level";
  const double needed = quantile * quantile * score.variance() / (distance * distance);
  const double more = std::max(1.0, std::ceil(needed) - static_cast<double>(score.pairCount()));
  return "these games cannot tell; about " + whole(more) + " more pairs would, if they go on like this";
}

}  // namespace quorvane::play

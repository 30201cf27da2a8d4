#include "learning/fit/fit_system.h"

#include <algorithm>
#include <bit>
#include <cassert>

#include "learning/fit/ordered_sums.h"
#include "learning/fit/pair_counts.h"

namespace quorvane {

// The square of a net count counts every firing by itself, whatever its side, and every pair of them.
std::vector<double> FitSystem::accumulateCounts() const {
  std::vector<double> squares = pairCounts(rows, repetitions, configurations, nodeLists);
  for (const Kind& kind : kinds)
    kind.matrix->addWords(frequencies, std::span(squares).subspan(kind.firstNode));
  return squares;
}

void FitSystem::updateValues() {
  for (const Kind& kind : kinds) sumWeightsInOrder(*kind.list, kind.words, *kind.matrix, values);
}

Residuals FitSystem::residuals(Caches caches) {
  std::vector<std::uint32_t> missed = misses;
  if (caches == Caches::filledByPassBefore) {
    for (const auto& [index, piece] : foundInFilledCaches) missed[index] &= ~(1U << piece);
  }
  return findResiduals(missed, [](std::size_t, double, double) {});
}

template <typename Visit>
Residuals FitSystem::findResiduals(std::span<const std::uint32_t> missed, Visit visit) {
  std::size_t first = 0;  // sample of the row
  for (std::size_t index = 0; index < rows.size(); ++index) {
    const SampleRows::View row = rows[index];
    double value = 0.0;
    double unrounded = 0.0;
    std::uint32_t left = missed[first];
    row.ownList.forEachAhead(values, [&](std::uint32_t place) {
      value += values[place].asFound(left);
      unrounded += values[place].unrounded();
      left >>= 1;
    });
    row.opposingList.forEachAhead(values, [&](std::uint32_t place) {
      value -= values[place].asFound(left);
      unrounded -= values[place].unrounded();
      left >>= 1;
    });
    double sum = store(samples[first], value);
    const std::size_t end = first + repetitions[index];
    if (first + 1 != end) sum += findFurtherResiduals(row, missed, first + 1, end);
    first = end;
    visit(index, unrounded, sum);
  }
  Residuals result;
  for (const double residual : residualOfSample) result.add(residual);
  return result;
}

double FitSystem::store(std::uint32_t sample, double value) {
  const double residual = static_cast<double>(targets[sample]) - value;
  residualOfSample[sample] = residual;
  return residual;
}

// Samples of one row differ in what the caches miss alone: as far as they miss nothing, their sums are the
// same.
double FitSystem::findFurtherResiduals(const SampleRows::View& row, std::span<const std::uint32_t> missed,
                                       std::size_t first, std::size_t end) {
  Table<WordValue, SampleSet::seatCount> worth;
  Table<double, SampleSet::seatCount + 1>
      upTo;  // v(s) of the first so many pieces, if none of them is missed
  upTo[0] = 0.0;
  std::int32_t count = 0;
  for (const std::uint32_t place : row.ownList) {
    worth[count] = values[place];
    upTo[count + 1] = upTo[count] + worth[count].rounded();
    ++count;
  }
  const std::int32_t ownCount = count;
  for (const std::uint32_t place : row.opposingList) {
    worth[count] = values[place];
    upTo[count + 1] = upTo[count] - worth[count].rounded();
    ++count;
  }
  double sum = 0.0;
  for (std::size_t index = first; index < end; ++index) {
    std::int32_t piece = std::min(std::countr_zero(missed[index]), count);
    double value = upTo[piece];
    for (std::uint32_t left = missed[index] >> piece % 32; piece < count; ++piece, left >>= 1) {
      value += piece < ownCount ? worth[piece].asFound(left) : -worth[piece].asFound(left);
    }
    sum += store(samples[index], value);
  }
  return sum;
}

Residuals FitSystem::accumulateGradient() {
  std::fill(gradientShares.begin(), gradientShares.end(), 0.0);
  const Residuals residuals = findResiduals(misses, [this](std::size_t row, double value, double sum) {
    lines[row].value = value;
    const double amount = 2.0 * sum;
    const auto& [ownList, opposingList] = rows[row];
    ownList.forEachAhead(gradientShares, [&](std::uint32_t place) { gradientShares[place] += amount; });
    opposingList.forEachAhead(gradientShares, [&](std::uint32_t place) { gradientShares[place] -= amount; });
  });
  std::vector<double> byNode(allNodes.size());
  for (const Kind& kind : kinds)
    kind.matrix->addWords(gradientShares, std::span(byNode).subspan(kind.firstNode));
  for (std::size_t node = 0; node < allNodes.size(); ++node) allNodes[node]->direction += byNode[node];
  return residuals;
}

void FitSystem::directionTerms() {
  std::vector<double> byNode;
  for (const PatternNode* node : allNodes) byNode.push_back(node->preconditioner * node->direction);
  for (const Kind& kind : kinds) {
    kind.matrix->sumNodes(std::span(byNode).subspan(kind.firstNode),
                          [this](std::uint32_t place, double sum) { slopeShares[place] = sum; });
  }
  for (std::size_t row = 0; row < rows.size(); ++row) lines[row].slope = rows.difference(row, slopeShares);
}

double FitSystem::lineSearch() {
  directionTerms();
  double slopesByResiduals = 0.0;
  double slopeSquares = 0.0;
  for (std::size_t sample = 0; sample < targets.size(); ++sample) {
    const Line& line = lines[rowOfSample[sample]];
    slopesByResiduals += line.slope * (static_cast<double>(targets[sample]) - line.value);
    slopeSquares += line.slope * line.slope;
  }
  return slopeSquares == 0.0 ? 0.0 : slopesByResiduals / slopeSquares;
}

}  // namespace quorvane

#include "learning/fit/fit_system.h"

#include <algorithm>
#include <bit>

#include "learning/fit/ordered_sums.h"
#include "learning/fit/pair_counts.h"
#include "learning/fit/prefetch.h"

namespace quorvane {

namespace {

// As an evaluation cache keeps it.
double rounded(double value) {
  return static_cast<double>(static_cast<float>(value));
}

double sumOf(std::span<const std::uint32_t> places, const std::vector<double>& byPlace) {
  double sum = 0.0;
  for (const std::uint32_t& place : places) {
    prefetch(&byPlace[*(&place + SampleRows::lookAhead)]);
    sum += byPlace[place];
  }
  return sum;
}

}  // namespace

// The square of a net count counts every firing by itself, whatever its side, and every pair of them.
std::vector<double> FitSystem::accumulateCounts() const {
  std::vector<double> squares = pairCounts(rows, repetitions, configurations, networkRow);
  for (const Kind& kind : kinds)
    kind.matrix->addWords(frequencies, std::span(squares).subspan(kind.firstNode));
  return squares;
}

void FitSystem::updateValues() {
  for (const Kind& kind : kinds) sumWeightsInOrder(*kind.list, kind.words, *kind.matrix, values);
}

Residuals FitSystem::residuals(Caches caches) {
  const auto swapMisses = [this, caches] {
    if (caches == Caches::cleared) return;
    for (const auto& [occurrence, piece] : foundInFilledCaches) occurrences[occurrence].misses ^= 1U << piece;
  };
  swapMisses();
  findResiduals([](std::size_t, const SampleRows::View&, double, double) {});
  swapMisses();
  return sumResiduals();
}

Residuals FitSystem::sumResiduals() const {
  Residuals result;
  for (const double residual : residualOfSample) result.add(residual);
  return result;
}

// Calls visit(number, row, v, sum) for every row: its v(s) unrounded, and the sum of its samples' residuals.
template <typename Visit>
void FitSystem::findResiduals(Visit visit) {
  const Occurrence* occurrence = occurrences.data();
  for (std::size_t number = 0; number < rows.size(); ++number) {
    const SampleRows::View row = rows[number];
    double value = 0.0;
    double unrounded = 0.0;
    std::uint32_t missed = occurrence->misses;
    for (const std::uint32_t& place : row.ownList) {
      prefetch(&values[*(&place + SampleRows::lookAhead)]);
      const double both[] = {rounded(values[place]), values[place]};
      value += both[missed & 1];
      unrounded += both[1];
      missed >>= 1;
    }
    for (const std::uint32_t& place : row.opposingList) {
      prefetch(&values[*(&place + SampleRows::lookAhead)]);
      const double both[] = {rounded(values[place]), values[place]};
      value -= both[missed & 1];
      unrounded -= both[1];
      missed >>= 1;
    }
    double sum = store(*occurrence, value);
    const Occurrence* const end = occurrence + repetitions[number];
    if (++occurrence != end) sum += findFurtherResiduals(row, {occurrence, end});
    occurrence = end;
    visit(number, row, unrounded, sum);
  }
}

double FitSystem::store(const Occurrence& occurrence, double value) {
  const double residual = static_cast<double>(targets[occurrence.sample]) - value;
  residualOfSample[occurrence.sample] = residual;
  return residual;
}

// Samples of one row differ in what the caches miss alone: as far as they miss nothing, their sums are the same.
double FitSystem::findFurtherResiduals(const SampleRows::View& row, std::span<const Occurrence> samples) {
  Table<double, SampleSet::placeCount> worth;  // unrounded
  Table<double, SampleSet::placeCount + 1>
      upTo{};  // v(s) of the first so many pieces, if none of them is missed
  std::int32_t count = 0;
  for (const std::uint32_t place : row.ownList) {
    worth[count] = values[place];
    upTo[count + 1] = upTo[count] + rounded(worth[count]);
    ++count;
  }
  const std::int32_t ownCount = count;
  for (const std::uint32_t place : row.opposingList) {
    worth[count] = values[place];
    upTo[count + 1] = upTo[count] - rounded(worth[count]);
    ++count;
  }
  double sum = 0.0;
  for (const Occurrence& sample : samples) {
    std::int32_t piece = std::min(std::countr_zero(sample.misses), count);
    double value = upTo[piece];
    for (std::uint32_t missed = sample.misses >> piece % 32; piece < count; ++piece, missed >>= 1) {
      const double both[] = {rounded(worth[piece]), worth[piece]};
      value += piece < ownCount ? both[missed & 1] : -both[missed & 1];
    }
    sum += store(sample, value);
  }
  return sum;
}

Residuals FitSystem::accumulateGradient() {
  std::fill(terms.begin(), terms.end(), 0.0);
  findResiduals([this](std::size_t number, const SampleRows::View& row, double value, double residualSum) {
    rowTerms[number].value = value;
    const double amount = 2.0 * residualSum;
    for (const std::uint32_t& place : row.ownList) {
      prefetch(&terms[*(&place + SampleRows::lookAhead)]);
      terms[place] += amount;
    }
    for (const std::uint32_t& place : row.opposingList) {
      prefetch(&terms[*(&place + SampleRows::lookAhead)]);
      terms[place] -= amount;
    }
  });

  std::vector<double> byNode(allNodes.size());
  for (const Kind& kind : kinds) kind.matrix->addWords(terms, std::span(byNode).subspan(kind.firstNode));
  for (std::size_t node = 0; node < allNodes.size(); ++node) allNodes[node]->direction += byNode[node];
  return sumResiduals();
}

void FitSystem::directionTerms() {
  std::vector<double> byNode;
  for (const PatternNode* node : allNodes) byNode.push_back(node->preconditioner * node->direction);
  for (const Kind& kind : kinds) kind.matrix->sumNodes(std::span(byNode).subspan(kind.firstNode), terms);
  for (std::size_t number = 0; number < rows.size(); ++number) {
    const SampleRows::View row = rows[number];
    rowTerms[number].slope = sumOf(row.ownList, terms) - sumOf(row.opposingList, terms);
  }
}

double FitSystem::lineSearch() {
  directionTerms();
  double slopesByResiduals = 0.0;
  double slopeSquares = 0.0;
  for (std::size_t sample = 0; sample < targets.size(); ++sample) {
    const RowTerms& row = rowTerms[rowOfSample[sample]];
    slopesByResiduals += row.slope * (static_cast<double>(targets[sample]) - row.value);
    slopeSquares += row.slope * row.slope;
  }
  return slopeSquares == 0.0 ? 0.0 : slopesByResiduals / slopeSquares;
}

}  // namespace quorvane

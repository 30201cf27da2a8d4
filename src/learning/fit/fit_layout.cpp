// How a FitSystem lays out samples, configurations and rows; fit_system.cpp has the steps.

#include <algorithm>
#include <bit>
#include <functional>
#include <numeric>

#include "learning/fit/configuration_table.h"
#include "learning/fit/fit_system.h"
#include "learning/sample_walk.h"

namespace quorvane {

FitSystem::FitSystem(const SampleSet& set, NetworkRow& row) : networkRow(row), rows(set.pieceCount()) {
  for (std::int32_t kind = 0; kind < pieceKindCount; ++kind) {
    kinds[kind].list = &row[kind];
    kinds[kind].firstNode = allNodes.size();
    for (PatternNode& node : row[kind]) allNodes.push_back(&node);
  }
  ConfigurationTable numbered;
  storeSamples(set, numbered);
  placeConfigurations(numbered);
}

// Takes over the samples; the rows hold numbers of configurations, as yet.
void FitSystem::storeSamples(const SampleSet& set, ConfigurationTable& numbered) {
  rowOfSample.reserve(set.size());
  targets.reserve(set.size());
  std::vector<std::uint32_t> missesOfSample;
  missesOfSample.reserve(set.size());
  CacheModel caches;
  struct Pieces {
    Table<std::uint32_t, SampleSet::placeCount> numbers;
    Table<std::uint32_t, SampleSet::placeCount> cacheIndexes;
  };
  Table<Pieces, 2> pieces;  // of the last two samples
  for (SampleWalk walk(set); walk.next();) {
    Pieces& present = pieces[walk.turn()];
    std::uint32_t missed = 0;
    std::uint32_t count = 0;
    const auto store = [&](std::span<const PieceConfiguration> list, std::int32_t listNumber,
                           std::int32_t firstPlace) {
      const auto changed = walk.changedPlaces() >> firstPlace;
      std::uint32_t* const numbers = present.numbers.begin() + firstPlace;
      std::uint32_t* const cacheIndexes = present.cacheIndexes.begin() + firstPlace;
      numbered.numberAll(list, changed, numbers);
      for (std::size_t i = 0; i < list.size(); ++i) {
        if ((changed >> i & 1) != 0) cacheIndexes[i] = CacheModel::indexOf(list[i]);
        const CacheModel::LookUp lookUp{static_cast<std::uint32_t>(targets.size()), count};
        if (caches.misses(list[i].word, cacheIndexes[i], listNumber, lookUp)) missed |= 1U << count;
        ++count;
      }
      return std::span<const std::uint32_t>(numbers, list.size());
    };
    const auto own = store(walk.ownList(), 0, 0);
    const auto opposing = store(walk.opposingList(), 1, piecesPerSide);
    rowOfSample.push_back(rows.numberOf(own, opposing));
    targets.push_back(static_cast<float>(walk.target()));
    missesOfSample.push_back(missed);
  }
  rows.finish();
  rowTerms.resize(rows.size());
  residualOfSample.resize(set.size());
  groupSamples(missesOfSample, caches.foundAgain());
}

// Configurations of about the same frequency stand together, the most frequent first, which keeps what is used most
// in the near caches; among these, each kind stands in the order of its matrix.
void FitSystem::placeConfigurations(const ConfigurationTable& numbered) {
  std::vector<std::uint32_t> frequency(numbered.size());
  for (std::size_t row = 0; row < rows.size(); ++row) {
    for (const std::uint32_t number : rows[row].ownList) frequency[number] += repetitions[row];
    for (const std::uint32_t number : rows[row].opposingList) frequency[number] += repetitions[row];
  }
  for (std::uint32_t number = 0; number < numbered.size(); ++number) {
    kinds[numbered[number].kind].words.push_back({numbered[number].word, number});
  }
  for (Kind& kind : kinds) FiringMatrix::sort(kind.words);  // numbers stand for places so far

  std::vector<PlacedWord> byFrequency;
  byFrequency.reserve(numbered.size());
  for (const Kind& kind : kinds) byFrequency.insert(byFrequency.end(), kind.words.begin(), kind.words.end());
  std::ranges::stable_sort(byFrequency, std::greater(),
                           [&](const PlacedWord& word) { return std::bit_width(frequency[word.place]); });
  configurations.reserve(numbered.size());
  frequencies.reserve(numbered.size());
  std::vector<std::uint32_t> places(numbered.size());
  for (const auto& [word, number] : byFrequency) {
    places[number] = static_cast<std::uint32_t>(configurations.size());
    configurations.push_back(numbered[number]);
    frequencies.push_back(frequency[number]);
  }
  rows.renumber(places);
  for (Kind& kind : kinds) {
    for (PlacedWord& word : kind.words) word.place = places[word.place];
    kind.matrix.emplace(*kind.list, kind.words);
  }
  values.resize(numbered.size());
  terms.resize(numbered.size());
}

void FitSystem::groupSamples(const std::vector<std::uint32_t>& missesOfSample,
                             const std::vector<CacheModel::LookUp>& foundAgain) {
  repetitions.resize(rows.size());
  for (const std::uint32_t row : rowOfSample) ++repetitions[row];
  std::vector<std::uint32_t> next(rows.size());
  std::exclusive_scan(repetitions.begin(), repetitions.end(), next.begin(), 0U);
  std::vector<std::uint32_t> occurrenceOfSample(targets.size());
  occurrences.resize(targets.size());
  for (std::uint32_t sample = 0; sample < targets.size(); ++sample) {
    const std::uint32_t occurrence = next[rowOfSample[sample]]++;
    occurrences[occurrence] = {sample, missesOfSample[sample]};
    occurrenceOfSample[sample] = occurrence;
  }
  for (const auto& [sample, piece] : foundAgain) {
    foundInFilledCaches.push_back({occurrenceOfSample[sample], piece});
  }
}

}  // namespace quorvane

// How a FitSystem lays out samples, configurations and rows; fit_system.cpp has the steps.

#include <algorithm>
#include <bit>
#include <cassert>
#include <functional>
#include <limits>
#include <memory>
#include <numeric>

#include "learning/fit/configuration_table.h"
#include "learning/fit/fit_system.h"
#include "learning/sample_walk.h"

namespace quorvane {

namespace {

// The pieces of a sample by seat, as numbers of configurations.
struct PieceNumbers {
  Table<std::uint32_t, SampleSet::seatCount> numbers;
  Table<std::uint32_t, SampleSet::seatCount> cacheIndexes;
  std::uint32_t unknown;  // seats of which the caches do not know the number
  std::uint32_t ownCount;
  std::uint32_t opposingCount;
  std::uint32_t hash;  // of the row

  std::span<const std::uint32_t> ownList() const { return {numbers.begin(), ownCount}; }
  std::span<const std::uint32_t> opposingList() const {
    return {numbers.begin() + piecesPerSide, opposingCount};
  }

  // Takes over the present sample of the walk, in the stead of the one before the last, and announces every
  // word that may be unknown. Gives which of its pieces the caches miss: bit 0 is the first own one.
  std::uint32_t lookUp(const SampleWalk& walk, const ConfigurationTable& numbered, CacheModel& caches,
                       std::uint32_t sample) {
    ownCount = static_cast<std::uint32_t>(walk.ownList().size());
    opposingCount = static_cast<std::uint32_t>(walk.opposingList().size());
    unknown = 0;
    std::uint32_t missed = 0;
    std::uint32_t piece = 0;
    const auto lookUpList = [&](std::int32_t begin, std::uint32_t count) {
      const std::int32_t end = begin + static_cast<std::int32_t>(count);
      for (std::int32_t seat = begin; seat < end; ++seat, ++piece) {
        if ((walk.changedSeats() >> seat & 1) != 0) {
          numbers[seat] = CacheModel::unknownNumber;
          numbered.announce(walk.piece(seat));
          cacheIndexes[seat] = CacheModel::indexOf(walk.piece(seat), begin != 0);
        }
        const bool misses =
            caches.misses(walk.piece(seat).word, cacheIndexes[seat], {sample, piece}, numbers[seat]);
        missed |= (misses ? 1U : 0U) << piece;
        unknown |= (numbers[seat] == CacheModel::unknownNumber ? 1U : 0U) << seat;
      }
    };
    lookUpList(0, ownCount);
    lookUpList(piecesPerSide, opposingCount);
    return missed;
  }

  template <typename Visit>
  void forEachUnknown(Visit visit) const {
    for (std::uint32_t left = unknown; left != 0; left &= left - 1) visit(std::countr_zero(left));
  }
};

}  // namespace

FitSystem::FitSystem(const SampleSet& set, NetworkRow& lists) : nodeLists(lists), rows(set.pieceCount()) {
  for (std::int32_t kind = 0; kind < pieceKindCount; ++kind) {
    kinds[kind].list = &lists[kind];
    kinds[kind].firstNode = allNodes.size();
    for (PatternNode& node : lists[kind]) allNodes.push_back(&node);
  }
  assert(set.size() < std::numeric_limits<std::uint32_t>::max());
  ConfigurationTable numbered;
  storeSamples(set, numbered);
  placeConfigurations(numbered);
}

// Takes over the samples; the rows hold numbers of configurations, as yet.
//
// The tables are larger than the processor's near caches. So what is wanted of them is announced first, and
// something else is done while it comes: a sample gets its row when the next one has been looked up.
void FitSystem::storeSamples(const SampleSet& set, ConfigurationTable& numbered) {
  rowOfSample.reserve(set.size());
  targets.reserve(set.size());
  std::vector<std::uint32_t> missesOfSample;
  missesOfSample.reserve(set.size());
  auto caches = std::make_unique<CacheModel>();
  Table<PieceNumbers, 2> pieces;  // of the last two samples
  const auto enter = [&](const PieceNumbers& sample) {
    rowOfSample.push_back(rows.indexOf(sample.ownList(), sample.opposingList(), sample.hash));
  };
  for (SampleWalk walk(set); walk.next();) {
    PieceNumbers& present = pieces[walk.turn()];
    missesOfSample.push_back(
        present.lookUp(walk, numbered, *caches, static_cast<std::uint32_t>(targets.size())));
    if (!targets.empty()) enter(pieces[1 - walk.turn()]);
    present.forEachUnknown([&](std::int32_t seat) {
      const PieceConfiguration& piece = walk.piece(seat);
      present.numbers[seat] = numbered.numberOf(piece);
      caches->setNumber(piece.word, present.cacheIndexes[seat], present.numbers[seat]);
    });
    present.hash = rows.announce(present.ownList(), present.opposingList());
    targets.push_back(static_cast<float>(walk.target()));
    if (targets.size() == set.size()) enter(present);
  }
  rows.finish();
  lines.resize(rows.size());
  residualOfSample.resize(set.size());
  const std::vector<CacheModel::LookUp> foundAgain = caches->foundAgain();
  caches.reset();  // gives its memory to what follows
  groupSamples(missesOfSample, foundAgain);
}

// Configurations of about the same frequency stand together, the most frequent first, which keeps what is
// used most in the near caches; among these, each kind stands in the order of its matrix.
void FitSystem::placeConfigurations(const ConfigurationTable& numbered) {
  std::vector<std::uint32_t> frequency(numbered.size());
  for (std::size_t row = 0; row < rows.size(); ++row) {
    for (const std::uint32_t number : rows[row].ownList) frequency[number] += repetitions[row];
    for (const std::uint32_t number : rows[row].opposingList) frequency[number] += repetitions[row];
  }
  for (std::uint32_t number = 0; number < numbered.size(); ++number) {
    kinds[numbered[number].kind].words.push_back({numbered[number].word, number});
  }
  for (Kind& kind : kinds)
    FiringMatrix::sort(kind.words);  // their numbers stand in the stead of places so far

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
  rows.place(places);
  const auto noWord = static_cast<std::uint32_t>(configurations.size());
  for (Kind& kind : kinds) {
    for (PlacedWord& word : kind.words) word.place = places[word.place];
    kind.matrix.emplace(*kind.list, kind.words, noWord);
  }
  frequencies.push_back(0.0);
  values.resize(noWord + 1);
  gradientShares.resize(noWord + 1);
  slopeShares.resize(noWord + 1);
}

void FitSystem::groupSamples(const std::vector<std::uint32_t>& missesOfSample,
                             const std::vector<CacheModel::LookUp>& foundAgain) {
  repetitions.resize(rows.size());
  for (const std::uint32_t row : rowOfSample) ++repetitions[row];
  std::vector<std::uint32_t> next(rows.size());
  std::exclusive_scan(repetitions.begin(), repetitions.end(), next.begin(), 0U);
  std::vector<std::uint32_t> indexOfSample(targets.size());
  samples.resize(targets.size());
  misses.resize(targets.size());
  for (std::uint32_t sample = 0; sample < targets.size(); ++sample) {
    const std::uint32_t index = next[rowOfSample[sample]]++;
    samples[index] = sample;
    misses[index] = missesOfSample[sample];
    indexOfSample[sample] = index;
  }
  for (const auto& [sample, piece] : foundAgain)
    foundInFilledCaches.push_back({indexOfSample[sample], piece});
}

}  // namespace quorvane

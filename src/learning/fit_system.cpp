#include "learning/fit_system.h"

#include <algorithm>
#include <cmath>
#include <numeric>

#include "learning/ordered_sums.h"
#include "network/eval_cache.h"

namespace quorvane {

// Finds out which words of a pass over the samples the evaluation caches would miss. Keeps the words of the
// caches alone: what they are worth plays no part in it.
class FitSystem::CacheModel {
 public:
  CacheModel() : words(std::size_t{2} * pieceKindCount * EvalCache::size) {}

  // Looks `piece` up and stores it; `list` is 0 for own pieces and 1 for opposing ones.
  bool misses(const PieceConfiguration& piece, std::size_t list) {
    const std::size_t cache = list * pieceKindCount + piece.kind;
    ConfigurationWord& word = words[cache * EvalCache::size + EvalCache::indexOf(piece.word)];
    const bool missed = word != piece.word;
    word = piece.word;
    return missed;
  }

 private:
  std::vector<ConfigurationWord> words;
};

namespace {

// The numbers of the set's configurations, the most frequent first.
std::vector<std::uint32_t> rankConfigurations(const SampleSet& set) {
  std::vector<std::uint32_t> frequency(set.configurations().size());
  for (std::size_t index = 0; index < set.size(); ++index) {
    const SampleSet::View sample = set.view(index);
    for (const std::uint32_t number : sample.ownList) ++frequency[number];
    for (const std::uint32_t number : sample.opposingList) ++frequency[number];
  }
  std::vector<std::uint32_t> numbers(frequency.size());
  std::iota(numbers.begin(), numbers.end(), 0U);
  std::stable_sort(numbers.begin(), numbers.end(),
                   [&](std::uint32_t a, std::uint32_t b) { return frequency[a] > frequency[b]; });
  return numbers;
}

}  // namespace

FitSystem::FitSystem(const SampleSet& set, NetworkRow& networkRow) : samples(set), row(networkRow) {
  for (std::int32_t kind = 0; kind < pieceKindCount; ++kind) {
    kinds[kind].list = &networkRow[kind];
    kinds[kind].firstNode = allNodes.size();
    for (PatternNode& node : networkRow[kind]) allNodes.push_back(&node);
  }
  const std::vector<std::uint32_t> byFrequency = rankConfigurations(set);
  values.resize(2 * byFrequency.size());
  terms.resize(byFrequency.size());
  std::vector<std::uint32_t> places(byFrequency.size());
  for (std::uint32_t place = 0; place < byFrequency.size(); ++place) {
    const std::uint32_t number = byFrequency[place];
    places[number] = place;
    const PieceConfiguration& piece = set.configurations()[number];
    kinds[piece.kind].words.push_back(piece.word);
    kinds[piece.kind].places.push_back(place);
  }
  for (Kind& kind : kinds) kind.matrix.emplace(*kind.list, kind.words);
  storeSamples(places);
  CacheModel caches;
  markMisses(caches, missesClearedCache);
  markMisses(caches, missesFilledCache);
}

void FitSystem::storeSamples(const std::vector<std::uint32_t>& places) {
  std::size_t pieces = 0;
  for (std::size_t index = 0; index < samples.size(); ++index) {
    const SampleSet::View sample = samples.view(index);
    pieces += sample.ownList.size() + sample.opposingList.size();
    ownCounts.push_back(static_cast<std::uint8_t>(sample.ownList.size()));
    opposingCounts.push_back(static_cast<std::uint8_t>(sample.opposingList.size()));
    targets.push_back(static_cast<double>(static_cast<float>(sample.target)));
  }
  references.reserve(pieces);
  for (std::size_t index = 0; index < samples.size(); ++index) {
    const SampleSet::View sample = samples.view(index);
    for (const std::uint32_t number : sample.ownList) references.push_back(places[number] << 1);
    for (const std::uint32_t number : sample.opposingList) references.push_back(places[number] << 1);
  }
  lineResiduals.resize(samples.size());
}

void FitSystem::markMisses(CacheModel& caches, Reference mark) {
  Reference* reference = references.data();
  for (std::size_t index = 0; index < samples.size(); ++index) {
    const SampleSet::View sample = samples.view(index);
    const auto markList = [&](std::span<const std::uint32_t> numbers, std::size_t list) {
      for (const std::uint32_t number : numbers) {
        if (caches.misses(samples.configurations()[number], list)) *reference |= mark;
        ++reference;
      }
    };
    markList(sample.ownList, 0);
    markList(sample.opposingList, 1);
  }
}

void FitSystem::updateValues() {
  std::vector<double> sums;
  for (const Kind& kind : kinds) {
    sums.resize(kind.words.size());
    sumWeightsInOrder(*kind.list, kind.words, *kind.matrix, sums);
    for (std::size_t i = 0; i < sums.size(); ++i) {
      double* const pair = &values[2 * std::size_t{kind.places[i]}];
      pair[0] = static_cast<double>(static_cast<float>(sums[i]));
      pair[1] = sums[i];
    }
  }
}

FitSystem::Residuals FitSystem::residuals(Caches caches) const {
  Residuals result;
  const Reference* reference = references.data();
  for (std::size_t sample = 0; sample < targets.size(); ++sample) {
    const auto worth = [&] {
      const Reference piece = *reference++;
      if (caches == Caches::cleared) return values[valueIndex(piece)];
      const bool missed = (piece & missesFilledCache) != 0;
      return values[2 * termIndex(piece) + (missed ? 1 : 0)];
    };
    double value = 0.0;
    for (int own = ownCounts[sample]; own > 0; --own) value += worth();
    for (int opposing = opposingCounts[sample]; opposing > 0; --opposing) value -= worth();
    result.add(targets[sample] - value);
  }
  return result;
}

FitSystem::Residuals FitSystem::residualsAndGradient() {
  std::fill(terms.begin(), terms.end(), 0.0);
  Residuals result;
  const Reference* reference = references.data();
  for (std::size_t sample = 0; sample < targets.size(); ++sample) {
    const Reference* const opposing = reference + ownCounts[sample];
    const Reference* const end = opposing + opposingCounts[sample];
    double value = 0.0;
    double unrounded = 0.0;
    for (const Reference* piece = reference; piece != opposing; ++piece) {
      value += values[valueIndex(*piece)];
      unrounded += values[unroundedIndex(*piece)];
    }
    for (const Reference* piece = opposing; piece != end; ++piece) {
      value -= values[valueIndex(*piece)];
      unrounded -= values[unroundedIndex(*piece)];
    }
    lineResiduals[sample] = targets[sample] - unrounded;
    const double residual = targets[sample] - value;
    result.add(residual);
    const double amount = 2.0 * residual;
    for (; reference != opposing; ++reference) terms[termIndex(*reference)] += amount;
    for (; reference != end; ++reference) terms[termIndex(*reference)] -= amount;
  }

  std::vector<double> byWord;
  std::vector<double> byNode(allNodes.size());
  for (const Kind& kind : kinds) {
    byWord.resize(kind.words.size());
    for (std::size_t i = 0; i < byWord.size(); ++i) byWord[i] = terms[kind.places[i]];
    kind.matrix->addWords(byWord, std::span(byNode).subspan(kind.firstNode));
  }
  for (std::size_t node = 0; node < allNodes.size(); ++node) allNodes[node]->direction += byNode[node];
  return result;
}

double FitSystem::lineSearch() {
  std::vector<double> byNode;
  for (const PatternNode* node : allNodes) byNode.push_back(node->preconditioner * node->direction);
  std::vector<double> slopes;
  for (const Kind& kind : kinds) {
    slopes.resize(kind.words.size());
    kind.matrix->sumNodes(std::span(byNode).subspan(kind.firstNode), slopes);
    for (std::size_t i = 0; i < slopes.size(); ++i) terms[kind.places[i]] = slopes[i];
  }
  double b = 0.0;
  double c = 0.0;
  const Reference* reference = references.data();
  for (std::size_t sample = 0; sample < targets.size(); ++sample) {
    double slope = 0.0;
    for (int own = ownCounts[sample]; own > 0; --own) slope += terms[termIndex(*reference++)];
    for (int opposing = opposingCounts[sample]; opposing > 0; --opposing)
      slope -= terms[termIndex(*reference++)];
    b += slope * lineResiduals[sample];
    c += slope * slope;
  }
  return c == 0.0 ? 0.0 : b / c;
}

}  // namespace quorvane

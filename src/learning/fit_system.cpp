#include "learning/fit_system.h"

#include <algorithm>
#include <cmath>
#include <numeric>

#include "network/eval_cache.h"

namespace quorvane {

namespace {

// Finds out which words of a pass over the samples the evaluation caches would miss. Keeps the words of the
// caches alone: what they are worth plays no part in it.
class CacheModel {
 public:
  CacheModel() : words(2 * pieceKindCount * EvalCache::size) {}

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

}  // namespace

FitSystem::FitSystem(const SampleSet& set, NetworkRow& row) {
  for (NodeList& list : row) {
    for (PatternNode& node : list) allNodes.push_back(&node);
  }
  const std::vector<std::uint32_t> byPlace = rankConfigurations(set);
  findFiringNodes(set, byPlace, row);
  std::vector<std::uint32_t> places(byPlace.size());
  for (std::uint32_t place = 0; place < byPlace.size(); ++place) places[byPlace[place]] = place;
  storeSamples(set, places);
}

std::vector<std::uint32_t> FitSystem::rankConfigurations(const SampleSet& set) {
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

void FitSystem::findFiringNodes(const SampleSet& set, const std::vector<std::uint32_t>& byPlace,
                                const NetworkRow& row) {
  Table<std::size_t, pieceKindCount> firstNode{};
  for (std::int32_t kind = 1; kind < pieceKindCount; ++kind) {
    firstNode[kind] = firstNode[kind - 1] + row[kind - 1].size();
  }
  configurations.resize(byPlace.size());
  firingEnds.reserve(byPlace.size());
  for (const std::uint32_t number : byPlace) {
    const PieceConfiguration& piece = set.configurations()[number];
    const NodeList& list = row[piece.kind];
    forEachFiringNode(list, piece.word, [&](const PatternNode& node) {
      const std::size_t place = firstNode[piece.kind] + static_cast<std::size_t>(&node - list.data());
      firingNodes.push_back(static_cast<std::uint16_t>(place));
    });
    firingEnds.push_back(static_cast<std::uint32_t>(firingNodes.size()));
  }
}

void FitSystem::storeSamples(const SampleSet& set, const std::vector<std::uint32_t>& places) {
  std::size_t pieces = 0;
  for (std::size_t index = 0; index < set.size(); ++index) {
    pieces += set.view(index).ownList.size() + set.view(index).opposingList.size();
  }
  references.reserve(pieces);
  CacheModel caches;
  for (std::size_t index = 0; index < set.size(); ++index) {
    const SampleSet::View sample = set.view(index);
    const auto storeList = [&](std::span<const std::uint32_t> numbers, std::size_t list) {
      for (const std::uint32_t number : numbers) {
        const bool missed = caches.misses(set.configurations()[number], list);
        references.push_back((places[number] << placeShift) | (missed ? missesClearedCache : 0));
      }
    };
    storeList(sample.ownList, 0);
    storeList(sample.opposingList, 1);
    ownCounts.push_back(static_cast<std::uint8_t>(sample.ownList.size()));
    opposingCounts.push_back(static_cast<std::uint8_t>(sample.opposingList.size()));
    targets.push_back(static_cast<double>(static_cast<float>(sample.target)));
  }
  // Once more, with the caches as the first pass leaves them.
  Reference* reference = references.data();
  for (std::size_t index = 0; index < set.size(); ++index) {
    const SampleSet::View sample = set.view(index);
    const auto markList = [&](std::span<const std::uint32_t> numbers, std::size_t list) {
      for (const std::uint32_t number : numbers) {
        if (caches.misses(set.configurations()[number], list)) *reference |= missesFilledCache;
        ++reference;
      }
    };
    markList(sample.ownList, 0);
    markList(sample.opposingList, 1);
  }
  lineResiduals.resize(set.size());
}

std::vector<double> FitSystem::squaredCounts() const {
  std::vector<double> squares(allNodes.size());
  std::vector<std::int32_t> counts(allNodes.size());
  const Reference* reference = references.data();
  const auto forEachFiring = [&](const Reference* first, std::size_t count, auto visit) {
    for (std::size_t piece = 0; piece < count; ++piece) {
      const std::size_t place = first[piece] >> placeShift;
      for (std::size_t entry = place == 0 ? 0 : firingEnds[place - 1]; entry < firingEnds[place]; ++entry) {
        visit(firingNodes[entry]);
      }
    }
  };
  for (std::size_t sample = 0; sample < targets.size(); ++sample) {
    const Reference* const opposing = reference + ownCounts[sample];
    forEachFiring(reference, ownCounts[sample], [&](std::size_t node) { ++counts[node]; });
    forEachFiring(opposing, opposingCounts[sample], [&](std::size_t node) { --counts[node]; });
    const std::size_t pieces = std::size_t{ownCounts[sample]} + opposingCounts[sample];
    forEachFiring(reference, pieces, [&](std::size_t node) {
      const auto count = static_cast<double>(counts[node]);
      squares[node] += count * count;
      counts[node] = 0;
    });
    reference += pieces;
  }
  return squares;
}

void FitSystem::updateValues() {
  std::vector<double> weights;
  for (const PatternNode* node : allNodes) weights.push_back(static_cast<double>(node->weight));
  const std::uint16_t* entry = firingNodes.data();
  for (std::size_t place = 0; place < configurations.size(); ++place) {
    const std::uint16_t* const end = firingNodes.data() + firingEnds[place];
    double sum = 0.0;
    while (entry != end) sum += weights[*entry++];
    configurations[place] = {sum, 0.0};
  }
}

FitSystem::Residuals FitSystem::residuals(Caches caches) const {
  const Reference miss = caches == Caches::cleared ? missesClearedCache : missesFilledCache;
  Residuals result;
  const Reference* reference = references.data();
  for (std::size_t sample = 0; sample < targets.size(); ++sample) {
    double value = 0.0;
    const auto worth = [&] {
      const double sum = configurations[*reference >> placeShift].value;
      return (*reference++ & miss) != 0 ? sum : static_cast<double>(static_cast<float>(sum));
    };
    for (int own = ownCounts[sample]; own > 0; --own) value += worth();
    for (int opposing = opposingCounts[sample]; opposing > 0; --opposing) value -= worth();
    const double residual = targets[sample] - value;
    result.squares += residual * residual;
    result.absolutes += std::abs(residual);
    if (std::abs(residual) < 1.0) ++result.hits;
  }
  return result;
}

FitSystem::Residuals FitSystem::residualsAndGradient() {
  Residuals result;
  Reference* reference = references.data();
  for (std::size_t sample = 0; sample < targets.size(); ++sample) {
    const Reference* const opposing = reference + ownCounts[sample];
    const Reference* const end = opposing + opposingCounts[sample];
    double value = 0.0;
    double unrounded = 0.0;
    for (const Reference* piece = reference; piece != opposing; ++piece) {
      const double sum = configurations[*piece >> placeShift].value;
      value += (*piece & missesClearedCache) != 0 ? sum : static_cast<double>(static_cast<float>(sum));
      unrounded += sum;
    }
    for (const Reference* piece = opposing; piece != end; ++piece) {
      const double sum = configurations[*piece >> placeShift].value;
      value -= (*piece & missesClearedCache) != 0 ? sum : static_cast<double>(static_cast<float>(sum));
      unrounded -= sum;
    }
    const double residual = targets[sample] - value;
    result.squares += residual * residual;
    result.absolutes += std::abs(residual);
    lineResiduals[sample] = targets[sample] - unrounded;

    const double amount = 2.0 * residual;
    for (; reference != opposing; ++reference) configurations[*reference >> placeShift].term += amount;
    for (; reference != end; ++reference) configurations[*reference >> placeShift].term -= amount;
  }

  std::vector<double> directions(allNodes.size());
  const std::uint16_t* entry = firingNodes.data();
  for (std::size_t place = 0; place < configurations.size(); ++place) {
    const std::uint16_t* const endOfNodes = firingNodes.data() + firingEnds[place];
    const double term = configurations[place].term;
    while (entry != endOfNodes) directions[*entry++] += term;
  }
  for (std::size_t node = 0; node < allNodes.size(); ++node) allNodes[node]->direction += directions[node];
  return result;
}

double FitSystem::lineSearch() {
  std::vector<double> slopes;
  for (const PatternNode* node : allNodes) slopes.push_back(node->preconditioner * node->direction);
  const std::uint16_t* entry = firingNodes.data();
  for (std::size_t place = 0; place < configurations.size(); ++place) {
    const std::uint16_t* const end = firingNodes.data() + firingEnds[place];
    double sum = 0.0;
    while (entry != end) sum += slopes[*entry++];
    configurations[place].term = sum;
  }
  double b = 0.0;
  double c = 0.0;
  const Reference* reference = references.data();
  for (std::size_t sample = 0; sample < targets.size(); ++sample) {
    double slope = 0.0;
    for (int own = ownCounts[sample]; own > 0; --own)
      slope += configurations[*reference++ >> placeShift].term;
    for (int opposing = opposingCounts[sample]; opposing > 0; --opposing) {
      slope -= configurations[*reference++ >> placeShift].term;
    }
    b += slope * lineResiduals[sample];
    c += slope * slope;
  }
  return c == 0.0 ? 0.0 : b / c;
}

}  // namespace quorvane

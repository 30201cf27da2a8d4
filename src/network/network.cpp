#include "network/network.h"

#include <cassert>

#include "network/network_file.h"

namespace quorvane {

NetworkTable networkTable;

bool Network::networkLoaded = false;
std::string Network::fileInUse = networkFileName;

Network::Network(TableAsItStands) : currentLists(&networkTable[lastPositionType]) {}

Network::Network() : Network(TableAsItStands{}) {
  if (networkLoaded) return;
  networkLoaded = true;  // first: a load that fails is not repeated
  loadNetwork();
}

double Network::evaluateList(const std::vector<PieceConfiguration>& list,
                             Table<EvalCache, pieceKindCount>& caches, double sign, double value) const {
  for (const PieceConfiguration& piece : list) {
    assert(piece.kind < pieceKindCount);
    CacheEntry& entry = caches[piece.kind].entryFor(piece.word);
    if (entry.word == piece.word) {
      value += static_cast<double>(entry.value);
      continue;
    }
    double sum = 0.0;
    forEachFiringNode((*currentLists)[piece.kind], piece.word,
                      [&](const PatternNode& node) { sum += sign * static_cast<double>(node.weight); });
    value += sum;
    entry = {piece.word, static_cast<float>(sum)};
  }
  return value;
}

double Network::evaluate(const Sample& sample) {
  const double own = evaluateList(sample.ownList, ownCaches, 1.0, 0.0);
  return evaluateList(sample.opposingList, opposingCaches, -1.0, own);
}

void Network::clearCaches() {
  for (EvalCache& cache : ownCaches) cache.clear();
  for (EvalCache& cache : opposingCaches) cache.clear();
}

void Network::clearWeights() {
  for (NodeList& list : *currentLists) {
    for (PatternNode& node : list) node.weight = 0.0F;
  }
}

void Network::clearNodeList(PieceKind kind) {
  (*currentLists)[kind].clear();
}

std::int32_t Network::appendNode(PieceKind kind) {
  NodeList& list = (*currentLists)[kind];
  list.push_back({});
  return static_cast<std::int32_t>(list.size()) - 1;
}

PatternNode& Network::nodeAt(PieceKind kind, std::int32_t index) {
  NodeList& list = (*currentLists)[kind];
  assert(index >= 0 && static_cast<std::size_t>(index) < list.size());
  return list[static_cast<std::size_t>(index)];
}

}  // namespace quorvane

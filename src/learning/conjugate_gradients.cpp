#include <cmath>
#include <iostream>

#include "network/network.h"

namespace quorvane {

namespace {

double targetOf(const Sample& sample) {
  return static_cast<double>(static_cast<float>(sample.target));
}

struct Residuals {
  double squares = 0.0;
  double absolutes = 0.0;

  void add(double residual) {
    squares += residual * residual;
    absolutes += std::abs(residual);
  }
  double objective(std::size_t count) const {
    return count == 0 ? 0.0 : squares / static_cast<double>(count);
  }
  void print(std::size_t count) const {
    std::cout << "f(w)=" << objective(count) << "  Mean error: " << absolutes / static_cast<double>(count)
              << "\n";
  }
};

template <typename Row, typename Visit>
void forEachNode(Row& row, Visit visit) {
  for (NodeList& list : row) {
    for (PatternNode& node : list) visit(node);
  }
}

}  // namespace

double Network::buildPreconditioner(const SampleSet& set) {
  std::cout << "Building preconditioner ...";
  forEachNode(*currentLists, [](PatternNode& node) {
    node.direction = 0.0;
    node.preconditioner = 0.0;
    node.netCount = 0;
  });
  Residuals residuals;
  for (std::size_t index = 0; index < set.size(); ++index) {
    const Sample sample = set.sample(index);
    const double residual = targetOf(sample) - accumulateCounts(sample);
    residuals.add(residual);
    accumulateGradient(sample, 2.0 * residual);
  }
  forEachNode(*currentLists, [](PatternNode& node) {
    if (node.preconditioner != 0.0) node.preconditioner = 1.0 / node.preconditioner;
  });
  std::cout << " done.\n\n";
  if (!set.empty()) residuals.print(set.size());
  const double alpha = lineSearch(set);
  previousNorm = 0.0;
  forEachNode(*currentLists, [&](PatternNode& node) {
    const double q = node.direction * node.preconditioner;
    node.weight = static_cast<float>(static_cast<double>(node.weight) + q * alpha);
    previousNorm += q * node.direction;
    node.previousDirection = node.direction;
    node.direction = 0.0;
  });
  clearCaches();
  return residuals.objective(set.size());
}

double Network::conjugateStep(const SampleSet& set, bool reportOnly) {
  Residuals residuals;
  for (std::size_t index = 0; index < set.size(); ++index) {
    const Sample sample = set.sample(index);
    const double residual = targetOf(sample) - evaluate(sample);
    residuals.add(residual);
    if (!reportOnly) accumulateGradient(sample, 2.0 * residual);
  }
  if (reportOnly) {
    if (!set.empty()) {
      residuals.print(set.size());
      std::cout << "\n";
    }
    clearCaches();
    return 0.0;
  }
  std::cout << ".";
  double norm = 0.0;
  forEachNode(*currentLists, [&](const PatternNode& node) {
    norm += node.preconditioner * node.direction * node.direction;
  });
  const double beta = previousNorm == 0.0 ? 0.0 : norm / previousNorm;
  previousNorm = norm;
  forEachNode(*currentLists, [&](PatternNode& node) { node.direction += beta * node.previousDirection; });
  const double alpha = lineSearch(set);
  forEachNode(*currentLists, [&](PatternNode& node) {
    node.weight =
        static_cast<float>(static_cast<double>(node.weight) + alpha * (node.preconditioner * node.direction));
    node.previousDirection = node.direction;
    node.direction = 0.0;
  });
  clearCaches();
  return residuals.objective(set.size());
}

double Network::lineSearch(const SampleSet& set) {
  double b = 0.0;
  double c = 0.0;
  for (std::size_t index = 0; index < set.size(); ++index) {
    const Sample sample = set.sample(index);
    double slope;
    const double value = directionTerms(sample, slope);
    b += slope * (targetOf(sample) - value);
    c += slope * slope;
  }
  return c == 0.0 ? 0.0 : b / c;
}

double Network::accumulateCounts(const Sample& sample) {
  double value = 0.0;
  for (const PieceConfiguration& piece : sample.ownList) {
    forEachFiringNode((*currentLists)[piece.kind], piece.word, [&](PatternNode& node) {
      ++node.netCount;
      value += static_cast<double>(node.weight);
    });
  }
  for (const PieceConfiguration& piece : sample.opposingList) {
    forEachFiringNode((*currentLists)[piece.kind], piece.word, [&](PatternNode& node) {
      --node.netCount;
      value -= static_cast<double>(node.weight);
    });
  }
  for (const auto* list : {&sample.ownList, &sample.opposingList}) {
    for (const PieceConfiguration& piece : *list) {
      forEachFiringNode((*currentLists)[piece.kind], piece.word, [&](PatternNode& node) {
        const auto count = static_cast<double>(node.netCount);
        if (node.netCount != 0) node.preconditioner += count * count;
        node.netCount = 0;
      });
    }
  }
  return value;
}

void Network::accumulateGradient(const Sample& sample, double amount) {
  for (const PieceConfiguration& piece : sample.ownList) {
    forEachFiringNode((*currentLists)[piece.kind], piece.word,
                      [&](PatternNode& node) { node.direction += amount; });
  }
  for (const PieceConfiguration& piece : sample.opposingList) {
    forEachFiringNode((*currentLists)[piece.kind], piece.word,
                      [&](PatternNode& node) { node.direction -= amount; });
  }
}

double Network::directionTerms(const Sample& sample, double& slope) {
  slope = 0.0;
  double value = 0.0;
  for (const PieceConfiguration& piece : sample.ownList) {
    forEachFiringNode((*currentLists)[piece.kind], piece.word, [&](const PatternNode& node) {
      value += static_cast<double>(node.weight);
      slope += node.preconditioner * node.direction;
    });
  }
  for (const PieceConfiguration& piece : sample.opposingList) {
    forEachFiringNode((*currentLists)[piece.kind], piece.word, [&](const PatternNode& node) {
      value -= static_cast<double>(node.weight);
      slope -= node.preconditioner * node.direction;
    });
  }
  return value;
}

float Network::hitPercentage(const SampleSet& set) {
  if (set.empty()) return 100.0F;
  std::size_t hits = 0;
  for (std::size_t index = 0; index < set.size(); ++index) {
    const Sample sample = set.sample(index);
    if (std::abs(targetOf(sample) - evaluate(sample)) < 1.0) ++hits;
  }
  return static_cast<float>(100.0 * static_cast<double>(hits) / static_cast<double>(set.size()));
}

}  // namespace quorvane

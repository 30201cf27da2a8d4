// Times the steps of a fit against those of Eigen's conjugate gradients for least squares, on the same system
// in the same run:
//
//   eigen_comparison [FILE.pgn [--type N]]
//
// Of the type with the most samples if none is named, of generated games if no file is. In exact arithmetic
// the steps are the same ones: from zero weights, with the same preconditioner.

#include <malloc.h>

#include <Eigen/IterativeLinearSolvers>
#include <Eigen/SparseCore>
#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <limits>
#include <string>
#include <vector>

#include "bench/bench_input.h"
#include "learning/fit/fit_system.h"
#include "learning/sample_walk.h"

namespace {

using namespace quorvane;
using Eigen::Index;

// By rows, which is faster here than by columns. Its numbers have 32 bits: enough for two million samples.
using Matrix = Eigen::SparseMatrix<double, Eigen::RowMajor>;

constexpr std::int64_t generatedGames = 4000;
constexpr int timedSteps = 20;
// Up to here the objectives are the same but for the last digits. Then they part: the fit rounds its weights
// to 32 bits at each update, Eigen never does.
constexpr int sameSteps = 5;

double allocatedBytes() {
  const struct mallinfo2 heap = mallinfo2();
  return static_cast<double>(heap.uordblks + heap.hblkhd);
}

// The net counts of all nodes on all samples.
Matrix netCounts(const SampleSet& set, const NetworkRow& row) {
  std::vector<int*> countsOfKind;
  std::vector<int> counts(nodeCount(row));
  for (int* first = counts.data(); const NodeList& list : row) {
    countsOfKind.push_back(first);
    first += list.size();
  }
  const auto add = [&](std::span<const PieceConfiguration> pieces, int sign) {
    for (const PieceConfiguration& piece : pieces) {
      const NodeList& list = row[piece.kind];
      int* const ofKind = countsOfKind[piece.kind];
      forEachFiringNode(list, piece.word,
                        [&](const PatternNode& node) { ofKind[&node - list.data()] += sign; });
    }
  };
  Matrix matrix(static_cast<Index>(set.size()), static_cast<Index>(counts.size()));
  SampleWalk walk(set);
  for (Index sample = 0; walk.next(); ++sample) {
    std::fill(counts.begin(), counts.end(), 0);
    add(walk.ownList(), 1);
    add(walk.opposingList(), -1);
    matrix.startVec(sample);
    for (Index node = 0; node < matrix.cols(); ++node) {
      const int count = counts[static_cast<std::size_t>(node)];
      if (count != 0) matrix.insertBack(sample, node) = count;
    }
  }
  matrix.finalize();
  matrix.data().squeeze();
  return matrix;
}

Eigen::VectorXd targetsOf(const SampleSet& set) {
  Eigen::VectorXd targets(static_cast<Index>(set.size()));
  SampleWalk walk(set);
  for (Index sample = 0; walk.next(); ++sample) targets[sample] = walk.target();
  return targets;
}

// Both fits: run() takes at least one step from zero weights and gives the CPU seconds of all but the first;
// objective() is f(w) at the weights that it left.
struct OwnFit {
  double run(int steps) {
    const QuietOutput quiet;
    model.clearWeights();
    model.buildPreconditioner(system);  // the first step
    const double start = cpuSeconds();
    for (int step = 1; step < steps; ++step) model.conjugateStep(system, false);
    return cpuSeconds() - start;
  }
  double objective() { return system.residuals(FitSystem::Caches::cleared).objective(); }

  Network& model;
  FitSystem system;
};

struct EigenFit {
  // What a solution does beside its steps drops out of the difference of two.
  double run(int steps) {
    const double first = solve(1);
    return solve(steps) - first;
  }
  double solve(int steps) {
    const double start = cpuSeconds();
    Eigen::LeastSquaresConjugateGradient<Matrix> solver(matrix);  // the preconditioner is diagonal by default
    solver.setTolerance(0.0);
    solver.setMaxIterations(steps);
    weights = solver.solve(targets);
    return cpuSeconds() - start;
  }
  double objective() const {
    return (targets - matrix * weights).squaredNorm() / static_cast<double>(targets.size());
  }

  Matrix matrix;
  Eigen::VectorXd targets;
  Eigen::VectorXd weights = {};
};

void print(const char* what, double ofOwn, double ofEigen) {
  std::printf("%-26s %12.7g %12.7g %9.3g\n", what, ofOwn, ofEigen, ofEigen / ofOwn);
}

// Gives the status of the program: 0 if both have solved the same system.
int compare(const SampleSet& set, Network& network) {
  const double before = allocatedBytes();
  OwnFit own{network, FitSystem(set, network.row())};
  const double between = allocatedBytes();
  EigenFit eigen{netCounts(set, network.row()), targetsOf(set)};
  const auto samples = static_cast<double>(set.size());
  std::printf("%zu samples, %zu nodes\n%-26s %12s %12s %9s\n", set.size(), nodeCount(network.row()), "",
              "FitSystem", "Eigen", "ratio");
  print("bytes a sample", (between - before) / samples, (allocatedBytes() - between) / samples);

  own.run(sameSteps);
  eigen.run(sameSteps);
  print("f(w) behind a few steps", own.objective(), eigen.objective());
  const bool same = std::abs(own.objective() / eigen.objective() - 1.0) < 1e-6;
  double ownTime = std::numeric_limits<double>::infinity();
  double eigenTime = ownTime;
  for (int repetition = 0; repetition < 3; ++repetition) {
    ownTime = std::min(ownTime, own.run(1 + timedSteps));
    eigenTime = std::min(eigenTime, eigen.run(1 + timedSteps));
  }
  print("f(w) behind all steps", own.objective(), eigen.objective());
  const double scale = 1e9 / samples / timedSteps;
  print("ns for a sample and step", scale * ownTime, scale * eigenTime);
  if (!same) std::fprintf(stderr, "eigen_comparison: the two do not solve the same system\n");
  return same ? 0 : 1;
}

}  // namespace

int main(int argc, char** argv) {
  BenchLearner& learner = (argc > 1 ? inputOf(argv[1]) : inputOf(generatedGames)).learner;
  PositionType type = learner.largestType();
  if (argc > 3) type = std::clamp(std::atoi(argv[3]), firstLearnedType, lastPositionType);
  learner.use(type);
  std::printf("Type %d: ", type);
  return compare(learner.set(), learner.model());
}

// Runs the phases of the utility over game files and prints what each costs, in CPU time of this process:
//
//   phases FILE.pgn ...
//
// The utility's own output goes where it always goes, standard output; the tables go to standard error. Works
// in the current folder, as the utility does: an earlier network.dat is read and replaced.

#include <sys/resource.h>

#include <algorithm>
#include <cstdio>
#include <fstream>
#include <string>
#include <vector>

#include "bench/bench_learner.h"
#include "learning/fit/fit_progress.h"
#include "learning/fit/fit_system.h"

namespace {

using namespace quorvane;

// Takes the times of the fits as they go by, so that what is measured is what users run.
class FitTimes : public FitProgress {
 public:
  struct Fit {
    PositionType type;
    double start;  // in CPU seconds of the process
    double firstStep = 0.0;
    double end = 0.0;
    std::size_t samples = 0;
    std::size_t rows = 0;
    std::size_t configurations = 0;
    std::size_t steps = 0;
  };

  void begins(PositionType type) override {
    FitProgress::begins(type);
    fits.push_back({type, cpuSeconds()});
  }
  void built(const FitSystem& system, const Residuals& residuals) override {
    FitProgress::built(system, residuals);
    Fit& fit = fits.back();
    fit.firstStep = cpuSeconds();
    fit.samples = system.sampleCount();
    fit.rows = system.rowCount();
    fit.configurations = system.configurationCount();
  }
  void stepped(const Residuals& residuals) override {
    FitProgress::stepped(residuals);
    ++fits.back().steps;
  }
  void fitted() override {
    FitProgress::fitted();
    fits.back().end = cpuSeconds();
  }

  std::vector<Fit> fits;
};

template <typename Phase>
void report(const char* name, Phase phase) {
  const double start = cpuSeconds();
  phase();
  const double seconds = cpuSeconds() - start;
  rusage usage{};
  getrusage(RUSAGE_SELF, &usage);
  std::fprintf(stderr, "%-10s %9.3f s   peak %6.1f MB\n", name, seconds,
               static_cast<double>(usage.ru_maxrss) / 1024.0);
}

void reportFits(const std::vector<FitTimes::Fit>& fits) {
  std::fprintf(
      stderr, "type   samples      rows  different words  before steps  steps   in steps  sample and step\n");
  double before = 0.0;
  double inAllSteps = 0.0;
  for (const FitTimes::Fit& fit : fits) {
    const double inSteps = fit.end - fit.firstStep;
    const double sampleSteps = static_cast<double>(fit.samples) * static_cast<double>(fit.steps);
    std::fprintf(stderr, "%4d %9zu %9zu %16zu %11.3f s %6zu %8.3f s %13.1f ns\n", fit.type, fit.samples,
                 fit.rows, fit.configurations, fit.firstStep - fit.start, fit.steps, inSteps,
                 1e9 * inSteps / std::max(sampleSteps, 1.0));
    before += fit.firstStep - fit.start;
    inAllSteps += inSteps;
  }
  std::fprintf(stderr, "before the steps %.3f s, in steps %.3f s\n", before, inAllSteps);
}

}  // namespace

int main(int argc, char** argv) {
  const std::vector<std::string> files(argv + 1, argv + argc);
  report("plain read", [&] {  // the floor of loading
    for (const std::string& name : files) {
      std::ifstream file(name, std::ios::binary);
      char block[65536];
      while (file.read(block, sizeof block)) continue;
    }
  });
  BenchLearner learner;
  PgnDatabase database;
  FitTimes times;
  report("all", [&] {
    report("load", [&] {
      for (const std::string& name : files) database.load(name);
    });
    report("collect", [&] {
      learner.collectSamples(database);
      database.clear();
    });
    report("search", [&] { learner.searchAllPatterns(); });
    std::fprintf(stderr, "%zu samples of all 14 types\n", learner.sampleCount());
    report("fit", [&] { learner.fitAllWeights(times); });
  });
  reportFits(times.fits);
  return 0;
}

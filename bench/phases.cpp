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

namespace {

using namespace quorvane;

// Stands in front of std::cout and tells from what is printed when the fit of a type begins and ends and how
// many steps it takes, so that what is measured is what users run.
class FitWatch : public std::streambuf {
 public:
  struct Fit {
    double start;
    double firstStep = 0.0;
    double end = 0.0;
    std::size_t steps = 0;
  };

  FitWatch() : standard(std::cout.rdbuf(this)) {}
  ~FitWatch() override { std::cout.rdbuf(standard); }

  std::vector<Fit> fits;  // in CPU seconds of the process

 private:
  int_type overflow(int_type character) override {
    line += traits_type::to_char_type(character);
    if (line == steps) fits.back().firstStep = cpuSeconds();
    if (line.back() == '\n') {
      if (line.starts_with("Fitting weights")) fits.push_back({cpuSeconds()});
      if (line.starts_with(steps)) {
        fits.back().end = cpuSeconds();
        fits.back().steps = line.find(' ', steps.size()) - steps.size();  // a dot each, then " done."
      }
      line.clear();
    }
    return standard->sputc(traits_type::to_char_type(character));
  }
  int sync() override { return standard->pubsync(); }

  const std::string steps = "Weight fitting ";
  std::streambuf* const standard;
  std::string line;
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

void reportFits(const BenchLearner& learner, const std::vector<FitWatch::Fit>& fits) {
  std::fprintf(stderr, "type   samples  different words  before steps  steps   in steps  sample and step\n");
  PositionType type = firstLearnedType;
  for (const FitWatch::Fit& fit : fits) {
    const SampleSet& set = learner.setOf(type);
    const double inSteps = fit.end - fit.firstStep;
    const double sampleSteps = static_cast<double>(set.size()) * static_cast<double>(fit.steps);
    std::fprintf(stderr, "%4d %9zu %16zu %11.3f s %6zu %8.3f s %13.1f ns\n", type++, set.size(),
                 set.configurations().size(), fit.firstStep - fit.start, fit.steps, inSteps,
                 1e9 * inSteps / std::max(sampleSteps, 1.0));
  }
  std::fprintf(stderr, "%zu samples of all 14 types\n", learner.sampleCount());
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
  FitWatch watch;
  report("all", [&] {
    report("load", [&] {
      for (const std::string& name : files) database.load(name);
    });
    report("collect", [&] { learner.collectSamples(database); });
    report("search", [&] { learner.searchAllPatterns(); });
    report("fit", [&] { learner.fitAllWeights(); });
  });
  reportFits(learner, watch.fits);
  return 0;
}

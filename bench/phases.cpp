// Runs the phases of the utility over game files and prints what each costs, in CPU time of this process:
//
//   phases FILE.pgn ...
//
// The utility's own output goes where it always goes, standard output; the table goes to standard error. Works in the
// current folder, as the utility does: an earlier network.dat is read and replaced.

#include <sys/resource.h>

#include <cstdio>
#include <string>

#include "learning/learner.h"
#include "pgn/pgn_database.h"

namespace {

using namespace quorvane;

double cpuSeconds() {
  rusage usage{};
  getrusage(RUSAGE_SELF, &usage);
  const auto seconds = [](const timeval& time) {
    return static_cast<double>(time.tv_sec) + 1e-6 * static_cast<double>(time.tv_usec);
  };
  return seconds(usage.ru_utime) + seconds(usage.ru_stime);
}

double peakMegabytes() {
  rusage usage{};
  getrusage(RUSAGE_SELF, &usage);
  return static_cast<double>(usage.ru_maxrss) / 1024.0;
}

class PhaseLearner : public Learner {
 public:
  std::size_t samples() const {
    std::size_t count = 0;
    for (const SampleSet& set : sampleSets) count += set.size();
    return count;
  }
};

template <typename Phase>
void report(const char* name, Phase phase) {
  const double start = cpuSeconds();
  phase();
  std::fprintf(stderr, "%-16s %8.3f s  peak %7.1f MB\n", name, cpuSeconds() - start, peakMegabytes());
}

}  // namespace

int main(int argc, char** argv) {
  PhaseLearner learner;
  PgnDatabase database;
  report("load", [&] {
    for (int file = 1; file < argc; ++file) database.load(argv[file]);
  });
  report("collect", [&] { learner.collectSamples(database); });
  report("search", [&] { learner.searchAllPatterns(); });
  report("fit", [&] { learner.fitAllWeights(); });
  std::fprintf(stderr, "%-16s %8zu\n", "samples", learner.samples());
  return 0;
}

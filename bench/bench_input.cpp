#include "bench/bench_input.h"

#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <memory>

#include "tools/game_generator.h"

namespace quorvane {

namespace {

namespace fs = std::filesystem;

struct WorkFolder {
  WorkFolder() {
    fs::create_directories(path);
    fs::current_path(path);
  }
  ~WorkFolder() {
    std::error_code ignored;
    fs::remove_all(path, ignored);
  }
  const fs::path path = fs::temp_directory_path() / ("quorvane-bench-" + std::to_string(getpid()));
};

const fs::path& workFolder() {
  static const WorkFolder folder;
  return folder.path;
}

std::unique_ptr<BenchInput>& currentInput() {
  static std::unique_ptr<BenchInput> input;
  return input;
}

void writeGames(const fs::path& path, std::int64_t games) {
  currentInput().reset();  // the generator plays on the same board
  constexpr std::uint64_t seed = 1;
  GameGenerator generator(seed);
  std::ofstream file(path, std::ios::binary);
  while (games-- > 0) file << generator.nextGame();
}

}  // namespace

BenchInput::BenchInput(const std::string& pgnFile) : file(pgnFile) {
  database.load(file);
  learner.collectSamples(database);
  learner.searchAllPatterns();
}

BenchInput& inputOf(const std::string& file) {
  const std::string path = fs::absolute(file).string();
  workFolder();
  auto& input = currentInput();
  if (input != nullptr && input->file == path) return *input;
  const QuietOutput quiet;
  input.reset();  // first: there is one board for all
  input = std::make_unique<BenchInput>(path);
  return *input;
}

BenchInput& inputOf(std::int64_t games) {
  const fs::path path = workFolder() / (std::to_string(games) + ".pgn");
  if (!fs::exists(path)) writeGames(path, games);
  return inputOf(path.string());
}

}  // namespace quorvane

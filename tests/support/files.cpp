#include "support/files.h"

#include <fstream>
#include <iterator>

namespace quorvane {

std::string readFile(const std::filesystem::path& name) {
  std::ifstream file(name, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

void writeFile(const std::filesystem::path& name, std::string_view bytes) {
  std::ofstream(name, std::ios::binary) << bytes;
}

std::filesystem::path projectFile(const std::string& name) {
  return std::filesystem::path(QUORVANE_SOURCE_DIR) / name;
}

std::string exampleGames(int count) {
  const std::string all = readFile(projectFile("examples/games.pgn"));
  std::size_t end = 0;
  for (int game = 0; game < count; ++game) end = all.find("[Event ", end + 1);
  return all.substr(0, end);
}

}  // namespace quorvane

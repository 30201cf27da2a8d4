#ifndef QUORVANE_TESTS_SUPPORT_FILES_H_
#define QUORVANE_TESTS_SUPPORT_FILES_H_

#include <filesystem>
#include <string>
#include <string_view>

namespace quorvane {

// The bytes of a file; none if it cannot be read.
std::string readFile(const std::filesystem::path& name);
void writeFile(const std::filesystem::path& name, std::string_view bytes);

// A file of this project's sources, by its name from the top.
std::filesystem::path projectFile(const std::string& name);
// The text of the first games of examples/games.pgn.
std::string exampleGames(int count);

}  // namespace quorvane

#endif  // QUORVANE_TESTS_SUPPORT_FILES_H_

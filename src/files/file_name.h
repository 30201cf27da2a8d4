#ifndef QUORVANE_FILES_FILE_NAME_H_
#define QUORVANE_FILES_FILE_NAME_H_

#include <algorithm>
#include <filesystem>
#include <string>
#include <string_view>

namespace quorvane {

// The file that a user names: on Windows the name is UTF-8, whatever the code page, and one that is not names
// no file; elsewhere it is any bytes.
inline std::filesystem::path pathOf(std::string_view name) {
  try {
    return std::u8string(name.begin(), name.end());
  } catch (const std::filesystem::filesystem_error&) {
    return {};
  }
}

// A name as it can stand in a line: control characters are replaced.
inline std::string inOneLine(std::string name) {
  std::ranges::replace_if(
      name, [](unsigned char byte) { return byte < ' '; }, '?');
  return name;
}

}  // namespace quorvane

#endif  // QUORVANE_FILES_FILE_NAME_H_

#ifndef QUORVANE_FILES_REPLACE_FILE_H_
#define QUORVANE_FILES_REPLACE_FILE_H_

#include <filesystem>
#include <string_view>

namespace quorvane {

enum class Saved {
  yes,
  no,          // it may be written, but had no room for the bytes; what was there stands
  notWritable  // it may not be written, or may not be made where there is none; nothing was touched
};

// Makes `bytes` the content of the file `name`. Whoever looks at any moment, after a kill or a power cut too,
// finds the old content or the new, whole: the bytes are written and synced beside the file, under a name
// that nobody else uses (NAME.saving-PROCESS-NUMBER), and take its name in one step. Several processes may do
// so at once.
//
//   - The right to write decides, and nothing else: a file that may not be written stays, whatever its folder
//     allows. The new file gets the permissions of the old one and, as far as that is allowed, its owner.
//   - A symbolic link stays one, and its file is replaced or made.
//   - Where the folder takes no new file, or does not let go of the old one (a mount point), the old one is
//     written over, longer parts first; then a kill may leave it torn, but no lack of room does.
//   - What is no file, such as a terminal, is written to.
//   - Nothing else is written over, followed or removed. What a killed process leaves beside the file stays.
//
// Where files may not grow, the process has to ignore SIGXFSZ.
Saved replaceFile(const std::filesystem::path& name, std::string_view bytes);

}  // namespace quorvane

#endif  // QUORVANE_FILES_REPLACE_FILE_H_

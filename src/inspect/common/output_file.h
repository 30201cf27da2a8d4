#ifndef QUORVANE_INSPECT_COMMON_OUTPUT_FILE_H_
#define QUORVANE_INSPECT_COMMON_OUTPUT_FILE_H_

#include <string>
#include <string_view>
#include <vector>

namespace quorvane::inspect {

// Throws a Fault if `target` is one of the files that are read, by whatever name it goes, or a folder.
void refuseInput(const std::string& target, const std::vector<std::string>& inputs);

// Is there anything that writing to `target` would destroy? Not in an empty file, and not in what is no file,
// such as a terminal.
bool holdsSomething(const std::string& target);

// Throws a Fault if writing to `target` would destroy something: as refuseInput does, and for a file that
// holds something, but does not have `marker` near its beginning. `what` is what a file with the marker is
// called.
void refuseHarm(const std::string& target, const std::vector<std::string>& inputs, std::string_view marker,
                const std::string& what);

// Makes the text the content of the file, or throws a Fault and leaves what was there.
void writeOutput(const std::string& target, std::string_view text);

// "wrote out.pgn, 12 KB", without the size where there is none to tell.
std::string writtenText(const std::string& target);

}  // namespace quorvane::inspect

#endif  // QUORVANE_INSPECT_COMMON_OUTPUT_FILE_H_

#ifndef QUORVANE_FILES_RAW_FILE_H_
#define QUORVANE_FILES_RAW_FILE_H_

#include <cstdint>
#include <filesystem>
#include <string_view>
#include <utility>

namespace quorvane {

// A file open for writing, unbuffered; closed when it goes. With the functions below, all that replaceFile
// asks of the platform: raw_file_posix.cpp and raw_file_windows.cpp. Nothing throws; what returns bool tells
// whether all of it was done. What asks or changes the file REQUIRES that it is open.
class RawFile {
 public:
  RawFile() = default;  // not open
  RawFile(RawFile&& other) noexcept : handle(std::exchange(other.handle, closed)) {}
  RawFile& operator=(RawFile&& other) noexcept {
    std::swap(handle, other.handle);
    return *this;
  }
  ~RawFile() { close(); }

  // What stands at `name`, uncut, through links. Not open where it may not be written, or where there is
  // nothing, which `missing` tells. Does not wait, for the reader of a pipe or anything else.
  static RawFile existing(const std::filesystem::path& name, bool& missing);

  // A file made at `name`, with the permissions and, as far as allowed, the owner of `like` if that is open.
  // Not open where anything stands, a link that leads nowhere included.
  static RawFile made(const std::filesystem::path& name, const RawFile& like);

  bool isOpen() const { return handle != closed; }
  bool isRegular() const;  // no terminal, pipe or the like
  std::uint64_t size() const;
  bool seek(std::uint64_t place);
  bool write(std::string_view bytes);  // at the current place, which moves behind them
  bool resize(std::uint64_t size);     // the current place may change
  bool sync();                         // to the disk
  bool close();                        // of one that is not open: true

 private:
  static constexpr std::intptr_t closed = -1;
  explicit RawFile(std::intptr_t opened) : handle(opened) {}

  friend bool moveOver(const std::filesystem::path& from, const std::filesystem::path& to);

  std::intptr_t handle = closed;
};

// Gives the file `from` the name `to` in one step, and has the disk know it. What stood there is gone, a link
// as well; if anything forbids that, nothing changes.
bool moveOver(const std::filesystem::path& from, const std::filesystem::path& to);

// Unlike that of any other process of this system.
std::uint64_t processNumber();

}  // namespace quorvane

#endif  // QUORVANE_FILES_RAW_FILE_H_

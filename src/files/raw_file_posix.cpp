#ifndef _WIN32

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cassert>
#include <cerrno>
#include <cstdio>

#include "files/raw_file.h"

namespace quorvane {

namespace fs = std::filesystem;

namespace {

constexpr mode_t permissions = S_IRWXU | S_IRWXG | S_IRWXO;
constexpr mode_t usualPermissions = S_IRUSR | S_IWUSR | S_IRGRP | S_IWGRP | S_IROTH | S_IWOTH;

int descriptor(std::intptr_t handle) {
  assert(handle >= 0);
  return static_cast<int>(handle);
}

}  // namespace

RawFile RawFile::existing(const fs::path& name, bool& missing) {
  struct stat status {};
  const bool regular = stat(name.c_str(), &status) == 0 && S_ISREG(status.st_mode);
  const int waitless = regular ? 0 : O_NONBLOCK;
  RawFile file(::open(name.c_str(), O_WRONLY | O_CLOEXEC | O_NOCTTY | waitless));
  missing = !file.isOpen() && errno == ENOENT;
  // Once it is open, writing may wait for whoever reads.
  if (file.isOpen() && !regular) {
    const int fd = descriptor(file.handle);
    fcntl(fd, F_SETFL, fcntl(fd, F_GETFL) & ~O_NONBLOCK);
  }
  return file;
}

RawFile RawFile::made(const fs::path& name, const RawFile& like) {
  struct stat old {};
  const bool known = like.isOpen() && fstat(descriptor(like.handle), &old) == 0;
  constexpr int exclusively = O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC;
  RawFile file(::open(name.c_str(), exclusively, known ? old.st_mode & permissions : usualPermissions));
  if (known && file.isOpen()) {
    const int fd = descriptor(file.handle);
    // Whoever may not give the file away may often give it to the group.
    [[maybe_unused]] const bool kept =
        fchown(fd, old.st_uid, old.st_gid) == 0 || fchown(fd, static_cast<uid_t>(-1), old.st_gid) == 0;
    fchmod(fd, old.st_mode & permissions);
  }
  return file;
}

bool RawFile::isRegular() const {
  struct stat status {};
  return fstat(descriptor(handle), &status) == 0 && S_ISREG(status.st_mode);
}

std::uint64_t RawFile::size() const {
  struct stat status {};
  return fstat(descriptor(handle), &status) == 0 ? static_cast<std::uint64_t>(status.st_size) : 0;
}

bool RawFile::seek(std::uint64_t place) {
  return lseek(descriptor(handle), static_cast<off_t>(place), SEEK_SET) >= 0;
}

bool RawFile::write(std::string_view bytes) {
  while (!bytes.empty()) {
    const ssize_t count = ::write(descriptor(handle), bytes.data(), bytes.size());
    if (count > 0) {
      bytes.remove_prefix(static_cast<std::size_t>(count));
    } else if (count == 0 || errno != EINTR) {
      return false;
    }
  }
  return true;
}

bool RawFile::resize(std::uint64_t size) {
  return ftruncate(descriptor(handle), static_cast<off_t>(size)) == 0;
}

bool RawFile::sync() {
  while (fsync(descriptor(handle)) != 0) {
    // Some file systems have nothing to sync.
    if (errno != EINTR) return errno == EINVAL || errno == ENOTSUP || errno == ENOSYS;
  }
  return true;
}

bool RawFile::close() {
  // Interrupted, it is closed all the same.
  return !isOpen() || ::close(descriptor(std::exchange(handle, closed))) == 0 || errno == EINTR;
}

bool moveOver(const fs::path& from, const fs::path& to) {
  if (std::rename(from.c_str(), to.c_str()) != 0) return false;
  // The name stands whether or not its folder may be opened and synced.
  const fs::path folder = to.parent_path() / ".";
  RawFile opened(::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
  if (opened.isOpen()) opened.sync();
  return true;
}

std::uint64_t processNumber() {
  return static_cast<std::uint64_t>(getpid());
}

}  // namespace quorvane

#endif

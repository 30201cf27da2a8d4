#ifdef _WIN32

#define NOMINMAX
#define WIN32_LEAN_AND_MEAN
#include <windows.h>

#include <algorithm>
#include <cassert>

#include "files/raw_file.h"

namespace quorvane {

namespace fs = std::filesystem;

namespace {

HANDLE handleOf(std::intptr_t handle) {
  assert(handle != reinterpret_cast<std::intptr_t>(INVALID_HANDLE_VALUE));
  return reinterpret_cast<HANDLE>(handle);
}

std::intptr_t open(const fs::path& name, DWORD access, DWORD disposition) {
  constexpr DWORD shared = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
  return reinterpret_cast<std::intptr_t>(
      CreateFileW(name.c_str(), access, shared, nullptr, disposition, FILE_ATTRIBUTE_NORMAL, nullptr));
}

// Tries until `done`, or until anything but another program forbids it. Scanners for viruses and backups hold
// on to each new file, but for moments.
template <typename Try>
bool patiently(Try&& done) {
  constexpr int most = 20;
  constexpr DWORD pause = 25;  // milliseconds
  for (int tries = 1; !done(); ++tries) {
    const DWORD error = GetLastError();
    if (tries == most || (error != ERROR_SHARING_VIOLATION && error != ERROR_ACCESS_DENIED)) return false;
    Sleep(pause);
  }
  return true;
}

}  // namespace

RawFile RawFile::existing(const fs::path& name, bool& missing) {
  // With the right to delete it: a file that another program holds on to cannot be replaced, and stays.
  RawFile file;
  patiently([&] {
    file.handle = open(name, GENERIC_WRITE | DELETE, OPEN_EXISTING);
    return file.isOpen() || GetLastError() != ERROR_SHARING_VIOLATION;
  });
  if (!file.isOpen() && GetLastError() != ERROR_SHARING_VIOLATION) {
    file.handle = open(name, GENERIC_WRITE, OPEN_EXISTING);
  }
  missing = !file.isOpen() && GetLastError() == ERROR_FILE_NOT_FOUND;
  return file;
}

// Permissions come from the folder.
RawFile RawFile::made(const fs::path& name, const RawFile&) {
  return RawFile(open(name, GENERIC_WRITE, CREATE_NEW));
}

bool RawFile::isRegular() const {
  return GetFileType(handleOf(handle)) == FILE_TYPE_DISK;
}

std::uint64_t RawFile::size() const {
  LARGE_INTEGER size{};
  return GetFileSizeEx(handleOf(handle), &size) != 0 ? static_cast<std::uint64_t>(size.QuadPart) : 0;
}

bool RawFile::seek(std::uint64_t place) {
  LARGE_INTEGER distance{};
  distance.QuadPart = static_cast<LONGLONG>(place);
  return SetFilePointerEx(handleOf(handle), distance, nullptr, FILE_BEGIN) != 0;
}

bool RawFile::write(std::string_view bytes) {
  constexpr std::size_t most = 1U << 30;
  while (!bytes.empty()) {
    DWORD count = 0;
    const auto wanted = static_cast<DWORD>(std::min(bytes.size(), most));
    if (WriteFile(handleOf(handle), bytes.data(), wanted, &count, nullptr) == 0 || count == 0) return false;
    bytes.remove_prefix(count);
  }
  return true;
}

bool RawFile::resize(std::uint64_t size) {
  return seek(size) && SetEndOfFile(handleOf(handle)) != 0;
}

bool RawFile::sync() {
  return FlushFileBuffers(handleOf(handle)) != 0;
}

bool RawFile::close() {
  return !isOpen() || CloseHandle(handleOf(std::exchange(handle, closed))) != 0;
}

bool moveOver(const fs::path& from, const fs::path& to) {
  // A link would go, not the file that it leads to.
  const DWORD attributes = GetFileAttributesW(to.c_str());
  if (attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_REPARSE_POINT) != 0) return false;
  return patiently([&] {
    return MoveFileExW(from.c_str(), to.c_str(), MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH) != 0;
  });
}

std::uint64_t processNumber() {
  return GetCurrentProcessId();
}

}  // namespace quorvane

#endif

#include <bit>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <string>
#include <string_view>
#include <system_error>

#include "network/network.h"
#include "network/network_file.h"

namespace quorvane {

namespace {

namespace fs = std::filesystem;

void appendValue(std::string& bytes, std::uint32_t value) {
  for (int shift = 0; shift < 32; shift += 8) bytes += static_cast<char>((value >> shift) & 0xff);
}

// The whole table as it stands in the file.
std::string networkBytes() {
  std::string bytes;
  appendValue(bytes, networkFileVersion);
  for (std::int32_t kind = 0; kind < pieceKindCount; ++kind) {
    appendValue(bytes, controlRecord);
    appendValue(bytes, selectKind);
    appendValue(bytes, static_cast<std::uint32_t>(kind));
    for (PositionType type = 0; type < positionTypeCount; ++type) {
      appendValue(bytes, controlRecord);
      appendValue(bytes, selectType);
      appendValue(bytes, static_cast<std::uint32_t>(type));
      for (const PatternNode& node : networkTable[type][kind]) {
        appendValue(bytes, node.mask);
        appendValue(bytes, node.childBits);
        appendValue(bytes, std::bit_cast<std::uint32_t>(node.weight));
        appendValue(bytes, static_cast<std::uint32_t>(node.skip));
      }
    }
  }
  appendValue(bytes, controlRecord);
  appendValue(bytes, endOfFile);
  return bytes;
}

// Over the bytes from `start` on, without cutting the file; false if not all of them could be written.
bool overwrite(const fs::path& path, std::string_view bytes, std::size_t start) {
  std::ofstream file(path, std::ios::binary | std::ios::in | std::ios::out);
  file.seekp(static_cast<std::streamoff>(start));
  file << bytes.substr(start);
  file.close();
  return !file.fail();
}

// False only if the file cannot be opened; a write that fails on the way is not reported. What is longer than
// the old file is written first, so that a full disk shows while the old bytes still stand.
bool writeInPlace(const fs::path& path, const std::string& bytes) {
  std::error_code error;
  const std::uintmax_t oldSize = fs::is_regular_file(path, error) ? fs::file_size(path, error) : 0;
  if (oldSize == 0) {
    std::ofstream file(path, std::ios::binary | std::ios::trunc);
    if (!file) return false;
    file << bytes;
    return true;
  }
  if (!std::ofstream(path, std::ios::binary | std::ios::in | std::ios::out)) return false;
  if (bytes.size() > oldSize && !overwrite(path, bytes, oldSize)) {
    fs::resize_file(path, oldSize, error);
    return true;
  }
  overwrite(path, bytes, 0);
  fs::resize_file(path, bytes.size(), error);
  return true;
}

enum class Outcome { saved, noRoom, noNewFile };

// Writes the bytes beside `path` and gives them its name in one step: whatever happens on the way, `path` is
// whole, old or new. Where there is no room, the old file stays.
Outcome replaceFile(const fs::path& path, const std::string& bytes) {
  const fs::path fresh = path.native() + ".saving";
  std::error_code error;
  // What a killed run has left is removed, not written over: it might be a link by now.
  fs::remove(fresh, error);
  if (error) return Outcome::noNewFile;
  std::ofstream file(fresh, std::ios::binary | std::ios::trunc);
  if (!file) return Outcome::noNewFile;
  file.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
  file.close();
  Outcome outcome = file ? Outcome::saved : Outcome::noRoom;
  if (outcome == Outcome::saved) {
    const fs::file_status old = fs::status(path, error);
    if (fs::exists(old)) fs::permissions(fresh, old.permissions(), error);
    fs::rename(fresh, path, error);
    if (!error) return outcome;
    outcome = Outcome::noNewFile;
  }
  fs::remove(fresh, error);
  return outcome;
}

// False if neither the existing file nor a new one can be opened for writing.
bool save(const std::string& bytes) {
  std::error_code error;
  // Through symbolic links, which stay what they are.
  const fs::path path = fs::canonical(networkFileName, error);
  if (error) {
    const bool isLink = fs::is_symlink(fs::symlink_status(networkFileName, error));
    // A link that leads nowhere yet gets its file.
    return (!isLink && replaceFile(networkFileName, bytes) != Outcome::noNewFile) ||
           writeInPlace(networkFileName, bytes);
  }
  // A file that may not be written is not replaced either.
  if (!std::ofstream(path, std::ios::binary | std::ios::in | std::ios::out)) return false;
  const bool replaceable = fs::is_regular_file(path, error);
  return (replaceable && replaceFile(path, bytes) != Outcome::noNewFile) || writeInPlace(path, bytes);
}

}  // namespace

void Network::saveNetwork() {
  if (!save(networkBytes())) std::cout << "Error: network.dat file not found.\n";
}

}  // namespace quorvane

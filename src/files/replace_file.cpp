#include "files/replace_file.h"

#include <algorithm>
#include <cstdint>
#include <string>
#include <system_error>

#include "files/raw_file.h"

namespace quorvane {

namespace {

namespace fs = std::filesystem;

// Where the links that begin at `name` end. Link by link and never by the whole path: folders above the
// current one may be closed to us.
fs::path behindLinks(fs::path name) {
  constexpr int mostLinks = 40;  // no system follows more
  for (int link = 0; link < mostLinks; ++link) {
    std::error_code error;
    const fs::path next = fs::read_symlink(name, error);
    if (error) break;
    name = name.parent_path() / next;
  }
  return name;
}

// Is `target` what the links of `name` lead to? Not every link says where it leads: those of /proc may name a
// file that has another name by now, or none. Another process may replace the file between two looks.
bool leadsTo(const fs::path& name, const fs::path& target) {
  std::error_code error;
  bool same = name == target;
  for (int look = 0; look < 10 && !same; ++look) same = fs::equivalent(name, target, error);
  return same;
}

enum class Outcome { saved, noRoom, refused };

// `old` is the file at `target`, or not open if there is none. It is closed before the new one takes its
// name.
Outcome replaceWhole(const fs::path& target, std::string_view bytes, RawFile old) {
  constexpr int mostNames = 100;
  fs::path name;
  RawFile fresh;
  for (int number = 0; number < mostNames && !fresh.isOpen(); ++number) {
    name = target;
    name += ".saving-" + std::to_string(processNumber()) + "-" + std::to_string(number);
    fresh = RawFile::made(name, old);
  }
  if (!fresh.isOpen()) return Outcome::refused;
  old.close();
  const bool written = fresh.write(bytes) && fresh.sync() && fresh.close();
  if (written && moveOver(name, target)) return Outcome::saved;
  fresh.close();  // open files of Windows cannot be removed
  std::error_code error;
  fs::remove(name, error);
  return written ? Outcome::refused : Outcome::noRoom;
}

// What is longer than the old content comes first, but at least the last byte: no room, or a limit, shows
// while the old content still stands.
bool writeOver(RawFile& file, std::string_view bytes) {
  const std::uint64_t oldSize = file.size();
  const std::size_t last = bytes.empty() ? 0 : bytes.size() - 1;
  const auto first = static_cast<std::size_t>(std::min<std::uint64_t>(oldSize, last));
  if (!file.seek(first) || !file.write(bytes.substr(first)) || !file.sync()) {
    file.resize(oldSize);
    return false;
  }
  return file.seek(0) && file.write(bytes.substr(0, first)) && file.resize(bytes.size()) && file.sync();
}

}  // namespace

Saved replaceFile(const fs::path& name, std::string_view bytes) {
  const auto savedIf = [](bool done) { return done ? Saved::yes : Saved::no; };
  bool missing = false;
  RawFile old = RawFile::existing(name, missing);
  if (!old.isOpen() && !missing) return Saved::notWritable;
  if (old.isOpen() && !old.isRegular()) return savedIf(old.write(bytes) && old.close());

  const bool isNew = missing;
  const fs::path target = behindLinks(name);
  if (isNew || leadsTo(name, target)) {
    const Outcome outcome = replaceWhole(target, bytes, std::move(old));
    if (outcome != Outcome::refused) return savedIf(outcome == Outcome::saved);
  }
  RawFile inPlace = isNew ? RawFile::made(target, {}) : RawFile::existing(name, missing);
  if (!inPlace.isOpen()) return Saved::notWritable;
  const bool written = writeOver(inPlace, bytes) && inPlace.close();
  inPlace.close();
  std::error_code error;
  if (isNew && !written) fs::remove(target, error);
  return savedIf(written);
}

}  // namespace quorvane

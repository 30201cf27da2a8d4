#include "pgn/text_store.h"

#include <algorithm>
#include <cstring>
#include <limits>

namespace quorvane {

namespace {

constexpr std::size_t blockSize = 1 << 20;

template <typename End>
const End* copyEnds(const std::vector<std::uint32_t>& ends, std::byte* storage) {
  End* const copy = new (storage) End[ends.size()];
  std::transform(ends.begin(), ends.end(), copy, [](std::uint32_t end) { return static_cast<End>(end); });
  return copy;
}

}  // namespace

std::byte* TextStore::take(std::size_t size) {
  constexpr std::size_t alignment = alignof(std::uint32_t);
  size = (size + alignment - 1) / alignment * alignment;
  if (size > left) {
    left = std::max(size, blockSize);
    next = blocks.emplace_back(new std::byte[left]).get();
  }
  std::byte* const taken = next;
  next += size;
  left -= size;
  return taken;
}

TextList TextStore::keep(const TextBuilder& built) {
  const std::string_view text = built.closedText();
  const std::vector<std::uint32_t>& ends = built.closedEnds();
  if (ends.empty()) return {};  // there may be no storage yet in which an array could begin
  const bool isShort = text.size() <= std::numeric_limits<std::uint16_t>::max();
  const std::size_t endsSize = ends.size() * (isShort ? sizeof(std::uint16_t) : sizeof(std::uint32_t));
  std::byte* const storage = take(endsSize + text.size());

  TextList list;
  list.count = static_cast<std::uint32_t>(ends.size());
  if (isShort) {
    list.shortEnds = copyEnds<std::uint16_t>(ends, storage);
  } else {
    list.longEnds = copyEnds<std::uint32_t>(ends, storage);
  }
  char* const copy = reinterpret_cast<char*>(storage + endsSize);
  text.copy(copy, text.size());
  list.text = copy;
  return list;
}

}  // namespace quorvane

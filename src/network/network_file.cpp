#include "network/network_file.h"

#include <array>
#include <bit>
#include <cassert>

namespace quorvane {

namespace {

constexpr std::uint32_t controlRecord = 0;
enum ControlCode : std::uint32_t { selectKind = 0, selectType = 1, endOfFile = 2 };

constexpr auto kindEnd = static_cast<std::uint32_t>(pieceKindCount);
constexpr auto typeEnd = static_cast<std::uint32_t>(positionTypeCount);

void append(std::string& bytes, std::initializer_list<std::uint32_t> values) {
  for (const std::uint32_t value : values) {
    for (int shift = 0; shift < 32; shift += 8) bytes += static_cast<char>((value >> shift) & 0xff);
  }
}

class ValueReader {
 public:
  explicit ValueReader(std::istream& stream) : file(stream) {}

  // False, and `value` as it was, where less than one is left.
  bool next(std::uint32_t& value) {
    std::array<char, 4> bytes;
    file.read(bytes.data(), bytes.size());
    read += static_cast<std::uint64_t>(file.gcount());
    if (!file) return false;
    value = 0;
    for (std::size_t byte = 0; byte < bytes.size(); ++byte) {
      value |= std::uint32_t{static_cast<unsigned char>(bytes[byte])} << (8 * byte);
    }
    return true;
  }
  std::uint64_t bytesRead() const { return read; }

 private:
  std::istream& file;
  std::uint64_t read = 0;
};

}  // namespace

std::string encodeNetwork(const NetworkTable& table) {
  std::string bytes;
  append(bytes, {networkFileVersion});
  for (std::uint32_t kind = 0; kind < kindEnd; ++kind) {
    append(bytes, {controlRecord, selectKind, kind});
    for (std::uint32_t type = 0; type < typeEnd; ++type) {
      append(bytes, {controlRecord, selectType, type});
      for (const PatternNode& node :
           table[static_cast<PositionType>(type)][static_cast<std::int32_t>(kind)]) {
        assert(node.mask != controlRecord);
        append(bytes, {node.mask, node.childBits, std::bit_cast<std::uint32_t>(node.weight),
                       static_cast<std::uint32_t>(node.skip)});
      }
    }
  }
  append(bytes, {controlRecord, endOfFile});
  return bytes;
}

NetworkFlaw decodeNetwork(std::istream& file, NetworkTable& table) {
  ValueReader reader(file);
  std::uint32_t version;
  if (!reader.next(version)) return {NetworkFlaw::noVersion, reader.bytesRead()};
  if (version != networkFileVersion) return {NetworkFlaw::wrongVersion, version};

  NetworkFlaw first;
  const auto note = [&](NetworkFlaw::Kind kind, std::uint64_t value) {
    if (first.kind == NetworkFlaw::none) first = {kind, value};
  };
  std::uint32_t kind = 0;
  std::uint32_t type = 0;
  std::uint32_t head;
  while (reader.next(head)) {
    if (head == controlRecord) {
      std::uint32_t code;
      if (!reader.next(code)) break;
      if (code == endOfFile) return first;
      if (code == selectKind) {
        if (!reader.next(kind)) break;
        if (kind >= kindEnd) note(NetworkFlaw::unknownKind, kind);
      } else if (code == selectType) {
        if (!reader.next(type)) break;
        if (type >= typeEnd) note(NetworkFlaw::unknownType, type);
      } else {
        note(NetworkFlaw::unknownCode, code);
      }
      continue;
    }
    std::uint32_t childBits;
    std::uint32_t weight;
    std::uint32_t skip;
    if (!reader.next(childBits) || !reader.next(weight) || !reader.next(skip)) break;
    if (kind >= kindEnd || type >= typeEnd) continue;
    PatternNode node{};
    node.mask = head;
    node.childBits = childBits;
    node.weight = std::bit_cast<float>(weight);
    node.skip = static_cast<std::int32_t>(skip);
    table[static_cast<PositionType>(type)][static_cast<std::int32_t>(kind)].push_back(node);
  }
  note(NetworkFlaw::cutShort, reader.bytesRead());
  return first;
}

}  // namespace quorvane

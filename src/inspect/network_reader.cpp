#include "inspect/network_reader.h"

#include <bit>
#include <cmath>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <iterator>

#include "inspect/bit_names.h"
#include "inspect/fault.h"
#include "network/network_file.h"

namespace quorvane {

namespace {

// The 32-bit values of a file, one after the other.
class ValueReader {
 public:
  explicit ValueReader(const std::string& fileName) : name(fileName) {
    if (std::filesystem::is_directory(name)) throw Fault(name, "is a folder");
    std::ifstream file(name, std::ios::binary);
    if (!file) throw Fault(name, "cannot be opened");
    bytes.assign(std::istreambuf_iterator<char>(file), {});
  }

  bool atEnd() const { return at == bytes.size(); }
  std::uint32_t next() {
    if (bytes.size() - at < 4) fail("is cut short at byte " + std::to_string(bytes.size()));
    std::uint32_t value = 0;
    for (unsigned shift = 0; shift < 32; shift += 8) {
      value |= std::uint32_t{static_cast<unsigned char>(bytes[at++])} << shift;
    }
    return value;
  }
  // The operand of a control record, below `end`.
  std::int32_t selection(const char* what, std::int32_t end) {
    const std::uint32_t value = next();
    if (value >= static_cast<std::uint32_t>(end)) {
      fail("selects the " + std::string(what) + " " + std::to_string(value) + ", which does not exist");
    }
    return static_cast<std::int32_t>(value);
  }
  [[noreturn]] void fail(const std::string& wrong) const { throw Fault(name, wrong); }

 private:
  const std::string& name;
  std::string bytes;
  std::size_t at = 0;
};

PatternNode readNode(ValueReader& reader, ConfigurationWord mask) {
  PatternNode node{};
  node.mask = mask;
  node.childBits = reader.next();
  node.weight = std::bit_cast<float>(reader.next());
  node.skip = static_cast<std::int32_t>(reader.next());
  return node;
}

NetworkTable readTable(ValueReader& reader) {
  NetworkTable table;
  PositionType type = 0;
  std::int32_t kind = 0;
  while (true) {
    const std::uint32_t head = reader.next();
    if (head != controlRecord) {
      table[type][kind].push_back(readNode(reader, head));
      continue;
    }
    const std::uint32_t code = reader.next();
    if (code == endOfFile) return table;
    if (code == selectKind) {
      kind = reader.selection("piece kind", pieceKindCount);
    } else if (code == selectType) {
      type = reader.selection("position type", positionTypeCount);
    } else {
      reader.fail("holds a control record of the unknown code " + std::to_string(code));
    }
  }
}

// What is wrong with a node, if anything; `limit` is how many nodes its subtree may have, and every bit of
// `below` must be lower than the one that it adds to its parent's mask.
const char* wrongOf(const PatternNode& node, ConfigurationWord parent, ConfigurationWord below,
                    std::size_t limit) {
  const ConfigurationWord added = node.mask & ~parent;
  if ((node.mask & parent) != parent || !std::has_single_bit(added)) {
    return "does not add one bit to the pattern that it extends";
  }
  if (added < below) return "stands out of order";
  if (node.skip < 1 || static_cast<std::size_t>(node.skip) > limit)
    return "claims extensions that are not there";
  return std::isfinite(node.weight) ? nullptr : "has a weight that is no finite number";
}

// Checks the nodes from `begin` to `end`, all of which extend `parent`; gives the bits that the topmost add.
template <typename Complain>
ConfigurationWord checkForest(const NodeList& list, std::size_t begin, std::size_t end,
                              ConfigurationWord parent, const Complain& complain) {
  ConfigurationWord added = 0;
  std::size_t at = begin;
  while (at < end) {
    const PatternNode& node = list[at];
    const char* wrong = wrongOf(node, parent, parent | added, end - at);
    if (wrong != nullptr) complain(at, wrong);
    const std::size_t next = at + static_cast<std::size_t>(node.skip);
    const ConfigurationWord ofChildren = checkForest(list, at + 1, next, node.mask, complain);
    if (ofChildren != node.childBits) complain(at, "names other bits than its extensions add");
    added |= node.mask & ~parent;
    at = next;
  }
  return added;
}

}  // namespace

NetworkTable readNetwork(const std::string& name) {
  ValueReader reader(name);
  if (reader.next() != networkFileVersion) {
    reader.fail("is no network file of version " + std::to_string(networkFileVersion));
  }
  NetworkTable table = readTable(reader);
  if (!reader.atEnd()) reader.fail("goes on behind its end record");
  for (PositionType type = 0; type < positionTypeCount; ++type) {
    for (std::int32_t kind = 0; kind < pieceKindCount; ++kind) {
      const NodeList& list = table[type][kind];
      checkForest(list, 0, list.size(), 0, [&](std::size_t index, const char* wrong) {
        reader.fail("is damaged: " + std::string(kindName(kind)) + " pattern " + std::to_string(index + 1) +
                    " of type " + std::to_string(type) + " " + wrong);
      });
    }
  }
  return table;
}

}  // namespace quorvane

#include "network/strict_network.h"

#include <bit>
#include <cerrno>
#include <cmath>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <system_error>

#include "board/kind_name.h"
#include "files/file_name.h"
#include "network/network_file.h"

namespace quorvane {

namespace {

// By NetworkFlaw::Kind: what stands before its value, and behind it.
struct FlawText {
  const char* before;
  const char* behind;
};
constexpr FlawText flawTexts[] = {{"", ""},
                                  {"is cut short at byte ", ""},
                                  {"is no network file of version ", ""},
                                  {"is cut short at byte ", ""},
                                  {"holds a control record of the unknown code ", ""},
                                  {"selects the piece kind ", ", which does not exist"},
                                  {"selects the position type ", ", which does not exist"}};

std::string textOf(const NetworkFlaw& flaw) {
  const FlawText& text = flawTexts[flaw.kind];
  const std::uint64_t value = flaw.kind == NetworkFlaw::wrongVersion ? networkFileVersion : flaw.value;
  return text.before + std::to_string(value) + text.behind;
}

// What is wrong with a node, if anything; `limit` is how many nodes its subtree may have, and every bit of
// `below`, those of its parent and its earlier siblings, must be lower than the one that it adds.
const char* wrongOf(const PatternNode& node, ConfigurationWord parent, ConfigurationWord below,
                    std::size_t limit) {
  const ConfigurationWord added = node.mask & ~parent;
  if ((node.mask & parent) != parent || !std::has_single_bit(added)) {
    return "does not add one bit to the pattern that it extends";
  }
  if (added <= below) return "stands out of order";
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

NetworkTable readStrictly(std::istream& file) {
  NetworkTable table;
  const NetworkFlaw flaw = decodeNetwork(file, table);
  if (flaw.kind != NetworkFlaw::none) throw DamagedNetwork(textOf(flaw));
  if (file.peek() != std::istream::traits_type::eof()) {
    throw DamagedNetwork("goes on behind its end record");
  }
  for (PositionType type = 0; type < positionTypeCount; ++type) {
    for (std::int32_t kind = 0; kind < pieceKindCount; ++kind) {
      const NodeList& list = table[type][kind];
      checkForest(list, 0, list.size(), 0, [&](std::size_t index, const char* wrong) {
        throw DamagedNetwork("is damaged: " + std::string(kindName(kind)) + " pattern " +
                             std::to_string(index + 1) + " of type " + std::to_string(type) + " " + wrong);
      });
    }
  }
  return table;
}

NetworkTable readStrictly(const std::string& name) {
  const std::filesystem::path path = pathOf(name);
  std::error_code error;
  if (std::filesystem::is_directory(path, error)) throw DamagedNetwork("is a folder");
  std::ifstream file(path, std::ios::binary);
  if (!file) throw DamagedNetwork("cannot be opened: " + std::generic_category().message(errno));
  return readStrictly(file);
}

}  // namespace quorvane

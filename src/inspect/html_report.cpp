#include "inspect/html_report.h"

#include <filesystem>
#include <fstream>
#include <system_error>

#include "configurations/configuration_word.h"
#include "inspect/bit_names.h"
#include "inspect/fault.h"
#include "inspect/square_bits.h"
#include "network/network.h"
#include "page_text.h"

namespace quorvane {

namespace {

namespace fs = std::filesystem;

Json bitNamesJson(PositionType type, std::int32_t kind) {
  Json names = Json::array();
  for (std::int32_t bit = 0; bit < configurationBits; ++bit) {
    names.push_back(bitName(type, kind, configurationBit(bit)));
  }
  return names;
}

// Null where a piece has no such bits.
Json squaresJson(std::int32_t kind, const NodeList& list) {
  Json squares = Json::array();
  for (Square square = 0; square < squareCount; ++square) {
    const ConfigurationWord bits = squareBits(kind, square);
    double value = 0.0;
    forEachFiringNode(list, bits,
                      [&](const PatternNode& node) { value += static_cast<double>(node.weight); });
    squares.push_back(bits == 0 ? Json() : Json(shortest(static_cast<float>(value))));
  }
  return squares;
}

Json fullListJson(const ListSummary& list) {
  Json json = listJson(list);
  json["squares"] = squaresJson(list.kind, *list.list);
  Json nodes = Json::array();
  for (const PatternNode& node : *list.list) nodes.push_back({node.mask, shortest(node.weight)});
  json["nodes"] = nodes;
  return json;
}

void writeWhole(const fs::path& path, const std::string& text) {
  std::ofstream file(path, std::ios::binary | std::ios::trunc);
  file.write(text.data(), static_cast<std::streamsize>(text.size()));
  file.close();
  if (!file) throw Fault(path.string(), "cannot be written");
}

}  // namespace

Json reportJson(const std::string& networkName, const NetworkTable& table,
                const std::optional<Validation>& validation) {
  Json json{{"network", networkName}};
  for (PositionType type = 0; type < positionTypeCount; ++type) {
    json["types"].push_back({{"type", type}, {"name", typeName(type)}});
    if (!Network::isPawnEnding(type)) continue;
    json["pawnEndings"].push_back(type);
    json["pawnEndingBits"] = bitNamesJson(type, pawnKind);
  }
  for (std::int32_t kind = 0; kind < pieceKindCount; ++kind) {
    json["kinds"].push_back(kindName(kind));
    json["bits"][kindName(kind)] = bitNamesJson(lastPositionType, kind);
  }
  json["lists"] = Json::array();
  for (const ListSummary& list : summarise(table, {})) json["lists"].push_back(fullListJson(list));
  json["validation"] = validation ? validateJson(networkName, *validation) : Json();
  return json;
}

std::string reportPage(const Json& data) {
  std::string page;
  const std::size_t mark = pageText.find(pageDataMark);
  page += pageText.substr(0, mark);
  // No name of a file can end the script that the data stand in.
  for (const char character : textOf(data, false)) {
    if (character == '<') {
      page += "\\u003c";
    } else {
      page += character;
    }
  }
  page += pageText.substr(mark + pageDataMark.size());
  return page;
}

void writeReport(const std::string& fileName, const std::string& page) {
  std::error_code error;
  fs::path path = fs::canonical(fileName, error);  // a link stays one
  if (error) path = fileName;
  if (fs::is_directory(path)) throw Fault(fileName, "is a folder");
  // What is no file, such as a terminal, cannot be replaced.
  if (fs::exists(path) && !fs::is_regular_file(path)) return writeWhole(path, page);
  const fs::path fresh = path.native() + ".saving";
  fs::remove(fresh, error);  // what a killed run has left might be a link by now
  try {
    writeWhole(fresh, page);
    fs::rename(fresh, path);
  } catch (const std::exception&) {
    fs::remove(fresh, error);
    throw Fault(fileName, "cannot be written");
  }
}

}  // namespace quorvane

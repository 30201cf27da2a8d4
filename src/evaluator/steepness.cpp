#include "evaluator/steepness.h"

#include <cerrno>
#include <cmath>
#include <fstream>
#include <system_error>

#include "evaluator/json_value.h"
#include "files/file_name.h"

namespace quorvane::evaluator {

namespace {

Steepness steepnessFrom(const JsonValue& json) {
  Steepness steepness{};
  for (const JsonValue& one : json.at("types").array()) {
    const double type = one.at("type").number();
    if (!(type >= 0.0 && type < positionTypeCount) || type != std::floor(type)) throw BadJson("has no type");
    const JsonValue& k = one.at("steepness");
    if (k.isNull()) continue;
    if (!(k.number() >= 0.0)) throw BadJson("has no steepness");
    steepness[static_cast<PositionType>(type)] = k.number();
  }
  return steepness;
}

// The text of a file, of which no calibration is longer.
std::string textOf(const std::string& name) {
  constexpr std::streamsize longest = std::streamsize{16} * 1024 * 1024;
  std::ifstream file(pathOf(name), std::ios::binary);
  if (!file) throw BadCalibration("cannot be opened: " + std::generic_category().message(errno));
  std::string text;
  char block[4096];
  do {
    file.read(block, sizeof block);
    text.append(block, static_cast<std::size_t>(file.gcount()));
  } while (file && static_cast<std::streamsize>(text.size()) < longest);
  return text;
}

}  // namespace

Steepness readSteepness(const std::string& name, const std::string& fingerprint) {
  const std::string text = textOf(name);
  try {
    const JsonValue json = JsonValue::parse(text);
    if (json.at("generator").string() == "quorvane-inspect calibration") {
      if (json.at("fingerprint").string() != fingerprint)
        throw BadCalibration("is the calibration of another network");
      return steepnessFrom(json);
    }
  } catch (const BadJson&) {
    // As below.
  }
  throw BadCalibration("is no calibration that quorvane-inspect has written");
}

std::string calibrationBeside(const std::string& network) {
  return network + ".calibration.json";
}

}  // namespace quorvane::evaluator

#include "inspect/measure/calibration_file.h"

#include <cmath>
#include <fstream>

#include "configurations/bit_names.h"
#include "files/file_name.h"
#include "inspect/common/fault.h"

namespace quorvane::inspect {

namespace {

Json typeJson(PositionType type, const TypeCalibration& calibrated) {
  Json worth = Json::object();
  for (std::int32_t kind = 0; kind < pieceKindCount; ++kind) {
    const std::optional<double>& mean = calibrated.meanWorth[kind];
    worth[kindName(kind)] = mean ? Json(*mean) : Json();
  }
  Json bands = Json::array();
  for (const Band& band : calibrated.bands) bands.push_back(bandJson(band));
  return {{"type", type},
          {"samples", calibrated.samples},
          {"steepness", calibrated.hasPatterns ? Json(calibrated.steepness) : Json()},
          {"curveOfAllTypes", calibrated.curveOfAllTypes},
          {"meanWorth", worth},
          {"bands", bands}};
}

double steepnessFrom(const Json& json) {
  const auto steepness = json.get<double>();
  if (!std::isfinite(steepness) || steepness < 0.0) throw std::range_error("no steepness");
  return steepness;
}

TypeCalibration typeFrom(const Json& json) {
  TypeCalibration calibrated;
  calibrated.samples = json.at("samples");
  calibrated.hasPatterns = !json.at("steepness").is_null();
  if (calibrated.hasPatterns) calibrated.steepness = steepnessFrom(json.at("steepness"));
  calibrated.curveOfAllTypes = json.at("curveOfAllTypes");
  for (std::int32_t kind = 0; kind < pieceKindCount; ++kind) {
    const Json& mean = json.at("meanWorth").at(kindName(kind));
    if (!mean.is_null()) calibrated.meanWorth[kind] = mean.get<double>();
  }
  for (const Json& band : json.at("bands")) {
    calibrated.bands.push_back({band.at("samples"), band.at("lowest"), band.at("highest"),
                                band.at("meanValue"), band.at("meanTarget"), band.at("won"), band.at("drawn"),
                                band.at("lost")});
  }
  return calibrated;
}

Calibration calibrationFrom(const Json& json) {
  if (json.at("generator") != calibrationMarker) throw std::range_error("something else");
  Calibration calibration;
  calibration.network = json.at("network");
  calibration.fingerprint = json.at("fingerprint");
  calibration.files = json.at("files").get<std::vector<std::string>>();
  calibration.games = json.at("games");
  calibration.steepnessOfAllTypes = steepnessFrom(json.at("steepnessOfAllTypes"));
  for (const Json& one : json.at("types")) {
    const PositionType type = one.at("type");
    if (type < 0 || type >= positionTypeCount) throw std::range_error("no type");
    calibration.types[type] = typeFrom(one);
  }
  return calibration;
}

}  // namespace

std::string defaultCalibrationFile(const std::string& network) {
  return network + ".calibration.json";
}

Json calibrationJson(const Calibration& calibration) {
  Json types = Json::array();
  for (PositionType type = 0; type < positionTypeCount; ++type) {
    const TypeCalibration& calibrated = calibration.types[type];
    if (calibrated.samples != 0 || calibrated.hasPatterns) types.push_back(typeJson(type, calibrated));
  }
  return {{"generator", calibrationMarker},
          {"network", calibration.network},
          {"fingerprint", calibration.fingerprint},
          {"files", calibration.files},
          {"games", calibration.games},
          {"steepnessOfAllTypes", calibration.steepnessOfAllTypes},
          {"types", types}};
}

Calibration readCalibration(const std::string& name, const std::string& fingerprint) {
  std::ifstream file(pathOf(name), std::ios::binary);
  if (!file) throw Fault(name, "cannot be opened");
  Calibration calibration;
  try {
    calibration = calibrationFrom(Json::parse(file));
  } catch (const std::exception&) {
    throw Fault(name, "is no calibration that quorvane-inspect has written");
  }
  if (calibration.fingerprint != fingerprint) throw Fault(name, "is the calibration of another network");
  return calibration;
}

}  // namespace quorvane::inspect

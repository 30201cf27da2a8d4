#include "inspect/measure/calibration_file.h"

#include <cmath>
#include <fstream>
#include <utility>

#include "configurations/bit_names.h"
#include "files/file_name.h"
#include "inspect/common/fault.h"

namespace quorvane::inspect {

namespace {

constexpr std::pair<const char*, double Band::*> bandNumbers[] = {{"lowest", &Band::lowest},
                                                                  {"highest", &Band::highest},
                                                                  {"meanValue", &Band::meanValue},
                                                                  {"meanTarget", &Band::meanTarget},
                                                                  {"won", &Band::won},
                                                                  {"drawn", &Band::drawn},
                                                                  {"lost", &Band::lost}};

Band bandFrom(const Json& json) {
  Band band{};
  band.samples = json.at("samples");
  for (const auto& [name, number] : bandNumbers) band.*number = json.at(name);
  return band;
}

Json typeJson(PositionType type, const TypeCalibration& calibrated) {
  Json worth = Json::object();
  for (std::int32_t kind = 0; kind < pieceKindCount; ++kind)
    worth[kindName(kind)] = orNull(calibrated.meanWorth[kind]);
  return {{"type", type},
          {"samples", calibrated.samples},
          {"steepness", calibrated.hasPatterns ? Json(calibrated.steepness) : Json()},
          {"curveOfAllTypes", calibrated.curveOfAllTypes},
          {"meanWorth", worth},
          {"bands", arrayOf(calibrated.bands, bandJson)}};
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
  for (const Json& band : json.at("bands")) calibrated.bands.push_back(bandFrom(band));
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

Json bandJson(const Band& band) {
  Json json{{"samples", band.samples}};
  for (const auto& [name, number] : bandNumbers) json[name] = band.*number;
  return json;
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

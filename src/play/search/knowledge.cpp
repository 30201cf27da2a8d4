#include "play/search/knowledge.h"

#include <algorithm>
#include <cmath>
#include <filesystem>
#include <stdexcept>
#include <system_error>

#include "files/file_name.h"
#include "network/fingerprint.h"
#include "network/strict_network.h"
#include "play/search/score.h"

namespace quorvane::play {

namespace {

// Reads the file `name`; what is wrong with it begins with its name. What is no file at all, such as a pipe
// or a device, may never end.
template <typename Read>
auto readNamed(const std::string& name, Read read) {
  try {
    std::error_code error;
    const auto type = std::filesystem::status(pathOf(name), error).type();
    if (type == std::filesystem::file_type::not_found) throw std::runtime_error("cannot be opened");
    if (type != std::filesystem::file_type::regular) throw std::runtime_error("is no regular file");
    return read();
  } catch (const std::runtime_error& fault) {
    throw std::runtime_error(inOneLine(name) + ' ' + fault.what());
  }
}

}  // namespace

Knowledge::Knowledge(const std::string& name, const std::string& calibration) : file(name) {
  const NetworkTable table = readNamed(name, [&] { return readStrictly(name); });
  network.emplace(table);
  print = fingerprintOf(table);
  const auto calibrate = [&](const std::string& read) {
    steepness = readNamed(read, [&] { return evaluator::readSteepness(read, print); });
    calibrated = true;
  };
  const std::string beside = evaluator::calibrationBeside(name);
  if (!calibration.empty()) {
    calibrate(calibration);
  } else if (std::filesystem::exists(pathOf(beside))) {
    try {
      calibrate(beside);
    } catch (const std::runtime_error& fault) {
      unused = std::string(fault.what()) + ", and is not used";
    }
  }
  if (!calibrated) leaveCalibration();
}

void Knowledge::leaveCalibration() {
  calibrated = false;
  for (PositionType type = 0; type < positionTypeCount; ++type) {
    steepness[type].reset();
    if (network && network->knows(type)) steepness[type] = evaluator::usualSteepness;
  }
}

Judge::Judge(const Knowledge& by) : knowledge(by) {
  if (knowledge.learned()) cache.emplace(*knowledge.learned());
}

std::int32_t Judge::operator()(const Position& position) {
  double pawns;
  if (cache) {
    const PositionWords described = describe(position);
    const double value = evaluate(position, described, *cache);
    pawns = evaluator::pawnsOf(position, knowledge.steepnessOf(described.type), value);
    if (!knowledge.countsPieces()) pawns -= evaluator::pawnsOf(position, {}, 0.0);
  } else {
    pawns = evaluator::pawnsOf(position, {}, 0.0);
  }
  constexpr double limit = greatestJudgement;
  return static_cast<std::int32_t>(std::lround(std::clamp(100.0 * pawns, -limit, limit)));
}

}  // namespace quorvane::play

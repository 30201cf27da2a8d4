#include "inspect/json_output.h"

#include <array>
#include <charconv>

#include "inspect/bit_names.h"

namespace quorvane {

namespace {

const char* sideName(Side side) {
  return side == white ? "white" : "black";
}

Json patternJson(PositionType type, std::int32_t kind, ConfigurationWord mask, float weight) {
  return {{"weight", shortest(weight)}, {"mask", mask}, {"bits", bitNames(type, kind, mask)}};
}

Json pieceJson(PositionType type, const ExplainedPiece& piece, std::size_t top) {
  Json patterns = Json::array();
  for (std::size_t place = 0; place < piece.patterns.size() && place < top; ++place) {
    const FiringPattern& pattern = piece.patterns[place];
    patterns.push_back(patternJson(type, piece.kind, pattern.mask, pattern.weight));
  }
  const std::array name{static_cast<char>('a' + fileOf(piece.square)),
                        static_cast<char>('1' + rankOf(piece.square))};
  return {{"square", std::string(name.begin(), name.end())},
          {"side", sideName(piece.side)},
          {"kind", kindName(piece.kind)},
          {"value", piece.value},
          {"word", piece.word},
          {"bits", bitNames(type, piece.kind, piece.word)},
          {"patterns", patterns}};
}

// Null where there is nothing to divide by.
Json ratio(double sum, std::size_t count) {
  return count == 0 ? Json() : Json(sum / static_cast<double>(count));
}

Json residualsJson(const FitSystem::Residuals& residuals, std::size_t samples) {
  return {{"f", ratio(residuals.squares, samples)},
          {"meanError", ratio(residuals.absolutes, samples)},
          {"hitPercentage", ratio(100.0 * static_cast<double>(residuals.hits), samples)}};
}

Json measurementJson(const Measurement& measured) {
  Json bands = Json::array();
  for (const Band& band : measured.bands()) {
    bands.push_back({{"samples", band.samples},
                     {"lowest", band.lowest},
                     {"highest", band.highest},
                     {"meanValue", band.meanValue},
                     {"meanTarget", band.meanTarget}});
  }
  return {{"samples", measured.samples()},
          {"network", residualsJson(measured.network(), measured.samples())},
          {"zeros", residualsJson(measured.zeros(), measured.samples())},
          {"decided", measured.decided()},
          {"signPercentage", ratio(100.0 * static_cast<double>(measured.agreeing()), measured.decided())},
          {"bands", bands}};
}

}  // namespace

double shortest(float number) {
  std::array<char, 32> text;
  const auto written = std::to_chars(text.data(), text.data() + text.size(), number);
  double value = 0.0;
  std::from_chars(text.data(), written.ptr, value);
  return value;
}

std::string textOf(const Json& json, bool indented) {
  return json.dump(indented ? 2 : -1, ' ', false, Json::error_handler_t::replace) + "\n";
}

Json listJson(const ListSummary& list) {
  return {{"type", list.type},          {"kind", kindName(list.kind)}, {"patterns", list.list->size()},
          {"bySize", list.countBySize}, {"lowest", list.lowest},       {"highest", list.highest},
          {"mean", list.mean},          {"deviation", list.deviation}};
}

Json showJson(const std::string& networkName, const std::vector<ListSummary>& lists, std::size_t top) {
  Json listsJson = Json::array();
  for (const ListSummary& list : lists) listsJson.push_back(listJson(list));
  Json strongest = Json::array();
  for (const PlacedPattern& pattern : strongestPatterns(lists, top)) {
    Json json{{"type", pattern.type}, {"kind", kindName(pattern.kind)}};
    json.update(patternJson(pattern.type, pattern.kind, pattern.node->mask, pattern.node->weight));
    strongest.push_back(json);
  }
  return {{"network", networkName}, {"lists", listsJson}, {"strongest", strongest}};
}

Json explainJson(const std::string& networkName, const Explanation& explanation, std::size_t top) {
  const bool whiteMoves = explanation.sideToMove == white;
  Json pieces = Json::array();
  for (const ExplainedPiece& piece : explanation.pieces) {
    pieces.push_back(pieceJson(explanation.type, piece, top));
  }
  return {{"network", networkName},
          {"type", explanation.type},
          {"typeHasPatterns", explanation.typeHasPatterns},
          {"sideToMove", sideName(explanation.sideToMove)},
          {"total", explanation.total()},
          {"sums",
           {{"white", whiteMoves ? explanation.ownSum : explanation.opposingSum},
            {"black", whiteMoves ? explanation.opposingSum : explanation.ownSum}}},
          {"pieces", pieces}};
}

Json validateJson(const std::string& networkName, const Validation& validation) {
  Json types = Json::array();
  for (PositionType type = 0; type < positionTypeCount; ++type) {
    const Measurement& measured = validation.byType[type];
    if (measured.samples() == 0 && validation.patterns[type] == 0) continue;
    Json json{{"type", type}, {"patterns", validation.patterns[type]}};
    json.update(measurementJson(measured));
    types.push_back(json);
  }
  return {{"network", networkName},
          {"files", validation.files},
          {"games", validation.games},
          {"types", types},
          {"all", measurementJson(validation.all)}};
}

}  // namespace quorvane

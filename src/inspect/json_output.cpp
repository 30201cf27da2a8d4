#include "inspect/json_output.h"

#include <array>
#include <charconv>

#include "board/square_name.h"
#include "configurations/bit_names.h"

namespace quorvane::inspect {

namespace {

const char* sideName(Side side) {
  return side == white ? "white" : "black";
}

Json patternJson(PositionType type, std::int32_t kind, ConfigurationWord mask, double weight) {
  return {{"weight", shortest(weight)},
          {"mask", mask},
          {"bits", bitNames(type, kind, mask)},
          {"identifiers", bitIdentifiers(type, kind, mask)}};
}

Json orNull(const std::optional<double>& number) {
  return number ? Json(*number) : Json();
}

Json expectedScoreJson(const Explanation& explanation, const Calibration* calibration) {
  if (calibration == nullptr) return {};
  return orNull(calibration->expectedScore(explanation.type, explanation.total()));
}

Json pieceJson(PositionType type, const ExplainedPiece& piece, const Calibration* calibration) {
  Json json{{"square", squareName(piece.square)},
            {"side", sideName(piece.side)},
            {"kind", kindName(piece.kind)},
            {"value", piece.value}};
  json["meanWorth"] =
      calibration != nullptr ? orNull(calibration->types[type].meanWorth[piece.kind]) : Json();
  return json;
}

Json fullPieceJson(PositionType type, const ExplainedPiece& piece, const Calibration* calibration,
                   std::size_t top) {
  Json json = pieceJson(type, piece, calibration);
  json["word"] = piece.word;
  json["bits"] = bitNames(type, piece.kind, piece.word);
  json["identifiers"] = bitIdentifiers(type, piece.kind, piece.word);
  json["patterns"] = Json::array();
  for (std::size_t place = 0; place < piece.patterns.size() && place < top; ++place) {
    const FiringPattern& pattern = piece.patterns[place];
    json["patterns"].push_back(patternJson(type, piece.kind, pattern.mask, pattern.weight));
  }
  return json;
}

Json squaresJson(const std::vector<Square>& squares) {
  Json names = Json::array();
  for (const Square square : squares) names.push_back(squareName(square));
  return names;
}

Json decidingJson(const Explanation& explanation) {
  constexpr std::size_t count = 5;
  Json patterns = Json::array();
  for (const DecidingPattern& pattern : decidingPatterns(explanation, count)) {
    Json json{{"kind", kindName(pattern.kind)}};
    json.update(patternJson(explanation.type, pattern.kind, pattern.mask, pattern.weight));
    json["own"] = squaresJson(pattern.own);
    json["opposing"] = squaresJson(pattern.opposing);
    patterns.push_back(json);
  }
  return patterns;
}

Json sumsJson(const Explanation& explanation) {
  const bool whiteMoves = explanation.sideToMove == white;
  return {{"white", whiteMoves ? explanation.ownSum : explanation.opposingSum},
          {"black", whiteMoves ? explanation.opposingSum : explanation.ownSum}};
}

// Null where there is nothing to divide by.
Json ratio(double sum, std::size_t count) {
  return count == 0 ? Json() : Json(sum / static_cast<double>(count));
}

Json residualsJson(const Residuals& residuals, std::size_t samples) {
  return {{"f", ratio(residuals.squares, samples)},
          {"meanError", ratio(residuals.absolutes, samples)},
          {"hitPercentage", ratio(100.0 * static_cast<double>(residuals.hits), samples)}};
}

// `decided`: samples of games that were not drawn.
Json scoreJson(const Score& score, std::size_t samples, std::size_t decided) {
  return {{"f", ratio(score.squares, samples)},
          {"logLoss", ratio(score.logLoss, samples)},
          {"brier", ratio(score.brier, samples)},
          {"rightPercentage", ratio(100.0 * score.right, decided)}};
}

Json measurementJson(const Measurement& measured, const Figures& figures) {
  Json bands = Json::array();
  for (const Band& band : measured.bands()) bands.push_back(bandJson(band));
  Json network = residualsJson(measured.network(), measured.samples());
  network["logLoss"] = ratio(figures.network.logLoss, figures.samples);
  network["brier"] = ratio(figures.network.brier, figures.samples);
  network["rightPercentage"] = ratio(100.0 * figures.network.right, figures.decided);
  Json zeros = residualsJson(measured.zeros(), measured.samples());
  zeros["logLoss"] = ratio(figures.zeros.logLoss, figures.samples);
  zeros["brier"] = ratio(figures.zeros.brier, figures.samples);
  return {{"samples", measured.samples()},
          {"network", network},
          {"zeros", zeros},
          {"material", scoreJson(figures.material, figures.samples, figures.decided)},
          {"decided", measured.decided()},
          {"signPercentage", ratio(100.0 * static_cast<double>(measured.agreeing()), measured.decided())},
          {"bands", bands}};
}

Json oddityCountsJson(const std::map<Oddity, std::size_t>& counts) {
  Json json = Json::object();
  for (const auto& [oddity, count] : counts) json[oddityName(oddity)] = count;
  return json;
}

Json tallyJson(const GameTally& tally) {
  return {{"games", tally.games},
          {"withResult", tally.withResult},
          {"withSamples", tally.withSamples},
          {"samples", tally.samples},
          {"withoutSamples", oddityCountsJson(tally.withoutSamples)},
          {"oddWithSamples", oddityCountsJson(tally.partly)}};
}

// What the position as a whole is worth.
Json totalsJson(const Explanation& explanation, const Calibration* calibration) {
  return {{"type", explanation.type},
          {"typeHasPatterns", explanation.typeHasPatterns},
          {"sideToMove", sideName(explanation.sideToMove)},
          {"total", explanation.total()},
          {"expectedScore", expectedScoreJson(explanation, calibration)},
          {"sums", sumsJson(explanation)}};
}

}  // namespace

double shortest(float number) {
  std::array<char, 32> text;
  const auto written = std::to_chars(text.data(), text.data() + text.size(), number);
  double value = 0.0;
  std::from_chars(text.data(), written.ptr, value);
  return value;
}

double shortest(double number) {
  const auto single = static_cast<float>(number);
  return static_cast<double>(single) == number ? shortest(single) : number;
}

std::string textOf(const Json& json, bool indented) {
  return json.dump(indented ? 2 : -1, ' ', false, Json::error_handler_t::replace) + "\n";
}

Json bandJson(const Band& band) {
  return {{"samples", band.samples},       {"lowest", band.lowest},
          {"highest", band.highest},       {"meanValue", band.meanValue},
          {"meanTarget", band.meanTarget}, {"won", band.won},
          {"drawn", band.drawn},           {"lost", band.lost}};
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
    json.update(patternJson(pattern.type, pattern.kind, pattern.node->mask,
                            static_cast<double>(pattern.node->weight)));
    strongest.push_back(json);
  }
  return {{"network", networkName}, {"lists", listsJson}, {"strongest", strongest}};
}

Json explainJson(const std::string& networkName, const Origin& origin, const Explanation& explanation,
                 const Calibration* calibration, std::size_t top) {
  const auto nullIfEmpty = [](const std::string& text) { return text.empty() ? Json() : Json(text); };
  Json pieces = Json::array();
  for (const ExplainedPiece& piece : explanation.pieces) {
    pieces.push_back(fullPieceJson(explanation.type, piece, calibration, top));
  }
  Json json{{"network", networkName},
            {"fen", origin.fen},
            {"players", {{"white", nullIfEmpty(origin.white)}, {"black", nullIfEmpty(origin.black)}}},
            {"move", nullIfEmpty(origin.move)}};
  json.update(totalsJson(explanation, calibration));
  json["pieces"] = std::move(pieces);
  json["deciding"] = decidingJson(explanation);
  return json;
}

Json valueJson(const std::string& fen, const Explanation& explanation, const Calibration* calibration) {
  Json pieces = Json::array();
  for (const ExplainedPiece& piece : explanation.pieces) {
    pieces.push_back(pieceJson(explanation.type, piece, calibration));
  }
  Json json{{"fen", fen}};
  json.update(totalsJson(explanation, calibration));
  json["pieces"] = std::move(pieces);
  return json;
}

Json validateJson(const std::string& networkName, const Validation& validation, const Judgement& judgement) {
  Json types = Json::array();
  for (PositionType type = 0; type < positionTypeCount; ++type) {
    const Measurement& measured = validation.byType[type];
    if (measured.samples() == 0 && validation.patterns[type] == 0) continue;
    Json json{{"type", type}, {"patterns", validation.patterns[type]}};
    json.update(measurementJson(measured, judgement.byType[type]));
    types.push_back(json);
  }
  Json scoreBands = Json::array();
  for (const ScoreBand& band : judgement.scoreBands) {
    const bool any = band.samples != 0;
    scoreBands.push_back({{"from", band.from},
                          {"samples", band.samples},
                          {"expected", any ? Json(band.expected) : Json()},
                          {"score", any ? Json(band.score) : Json()}});
  }
  return {{"network", networkName},
          {"files", validation.files},
          {"verdict", verdict(validation, judgement)},
          {"games", validation.games},
          {"tally", tallyJson(validation.tally)},
          {"types", types},
          {"all", measurementJson(validation.all, judgement.all)},
          {"scoreBands", scoreBands}};
}

Json compareJson(const Contender& first, const Contender& second, const Comparison& comparison) {
  const auto differenceJson = [](const PairedDifference& difference) {
    return Json{{"mean", difference.mean}, {"low", difference.low}, {"high", difference.high}};
  };
  const auto comparedJson = [&](const ComparedType& compared) {
    return Json{{"samples", compared.samples},
                {"decided", compared.decided},
                {"a", scoreJson(compared.first, compared.samples, compared.decided)},
                {"b", scoreJson(compared.second, compared.samples, compared.decided)},
                {"f", differenceJson(compared.f)},
                {"logLoss", differenceJson(compared.logLoss)}};
  };
  Json types = Json::array();
  for (PositionType type = 0; type < positionTypeCount; ++type) {
    if (comparison.byType[type].samples == 0) continue;
    Json json{{"type", type}};
    json.update(comparedJson(comparison.byType[type]));
    types.push_back(json);
  }
  return {{"a", first.name},
          {"b", second.name},
          {"files", first.validation.files},
          {"verdict", verdict(first, second, comparison)},
          {"tally", tallyJson(first.validation.tally)},
          {"types", types},
          {"all", comparedJson(comparison.all)}};
}

Json gamesJson(const std::vector<FileReport>& files) {
  Json json = Json::array();
  for (const FileReport& report : files) {
    Json odd = Json::array();
    for (const OddGame& game : report.odd) {
      const GameVerdict& verdict = game.verdict;
      odd.push_back({{"game", game.number},
                     {"white", game.white},
                     {"black", game.black},
                     {"samples", verdict.samples},
                     {"reason", oddityName(verdict.oddity)},
                     {"text", oddityText(verdict.oddity)},
                     {"ply", verdict.ply},
                     {"token", verdict.token.empty() ? Json() : Json(verdict.token)}});
    }
    Json file{{"file", report.file}};
    file.update(tallyJson(report.tally));
    file["odd"] = odd;
    json.push_back(file);
  }
  return {{"files", json}};
}

}  // namespace quorvane::inspect

#include "inspect/report/page_data.h"

#include <chrono>
#include <filesystem>

#include "board/piece_letter.h"
#include "configurations/bit_names.h"
#include "configurations/configuration_word.h"
#include "configurations/place_bits.h"
#include "configurations/position_type.h"
#include "files/file_name.h"
#include "inspect/measure/calibration_file.h"
#include "inspect/measure/measure_output.h"
#include "inspect/patterns/summary_output.h"

namespace quorvane::inspect {

namespace {

Json bitNamesJson(PositionType type, std::int32_t kind) {
  Json names = Json::array();
  for (std::int32_t bit = 0; bit < configurationBits; ++bit)
    names.push_back(bitName(type, kind, configurationBit(bit)));
  return names;
}

Json fullListJson(const ListSummary& list) {
  const auto nodeJson = [](const PatternNode& node) { return Json{node.mask, shortest(node.weight)}; };
  return joined(listJson(list), {{"nodes", arrayOf(*list.list, nodeJson)}});
}

// Seconds since 1970, null for a file that is gone.
Json writtenJson(const std::string& fileName) {
  namespace chrono = std::chrono;
  std::error_code error;
  const auto written = std::filesystem::last_write_time(pathOf(fileName), error);
  if (error) return {};
  return chrono::duration_cast<chrono::seconds>(chrono::file_clock::to_sys(written).time_since_epoch())
      .count();
}

Json stepJson(const TrailStep& step) {
  const Explanation& explanation = step.explanation;
  Table<const ExplainedPiece*, squareCount> board{};
  for (const ExplainedPiece& piece : explanation.pieces) board[piece.square] = &piece;
  std::string letters;
  Json words = Json::array();
  for (const ExplainedPiece* const piece : board) {
    if (piece != nullptr) words.push_back(piece->word);
    letters += piece == nullptr ? '.' : pieceLetter(piece->side, piece->kind);
  }
  return {{"move", step.move},
          {"squares", step.from == noSquare ? Json() : Json({step.from, step.to})},
          {"sideToMove", explanation.sideToMove == white ? "white" : "black"},
          {"type", explanation.type},
          {"value", shortest(static_cast<float>(explanation.total()))},
          {"board", letters},
          {"words", words}};
}

Json trailJson(const GameTrail& trail) {
  return {{"file", trail.file},     {"number", trail.number},
          {"white", trail.white},   {"black", trail.black},
          {"event", trail.event},   {"date", trail.date},
          {"result", trail.result}, {"steps", arrayOf(trail.steps, stepJson)}};
}

// Kinds that were seen in the type, by square.
Json worthJson(const Table<PieceWorth, positionTypeCount>& worthByType) {
  Json json = Json::array();
  for (PositionType type = 0; type < positionTypeCount; ++type) {
    for (std::int32_t kind = 0; kind < pieceKindCount; ++kind) {
      const auto& worths = worthByType[type][kind];
      if (meanOf(worths).count == 0) continue;
      json.push_back({{"type", type},
                      {"kind", kindName(kind)},
                      {"counts", arrayOf(worths, [](const Mean& worth) { return worth.count; })},
                      {"means", arrayOf(worths, [](const Mean& worth) {
                         return worth.value() ? Json(shortest(static_cast<float>(*worth.value()))) : Json();
                       })}});
    }
  }
  return json;
}

}  // namespace

Json pageData(const PageInput& input, const NetworkTable& table) {
  Json json{{"network", input.networkName},
            {"written", writtenJson(input.networkName)},
            {"learnedFrom", input.learnedFrom}};
  for (PositionType type = 0; type < positionTypeCount; ++type) {
    json["types"].push_back({{"type", type}, {"name", typeName(type)}, {"words", typeInWords(type)}});
    if (!isPawnEnding(type)) continue;
    json["pawnEndings"].push_back(type);
    json["pawnEndingBits"] = bitNamesJson(type, pawnKind);
  }
  for (std::int32_t kind = 0; kind < pieceKindCount; ++kind) {
    json["kinds"].push_back(kindName(kind));
    json["bits"][kindName(kind)] = bitNamesJson(lastPositionType, kind);
    json["places"][kindName(kind)] = placeBitsOfWhite[kind].entries;
    json["always"][kindName(kind)] = alwaysHolds(kind);
  }
  json["lists"] = arrayOf(summarise(table, {}), fullListJson);
  json["validation"] = Json();
  if (input.validation && input.calibration) {
    json["validation"] =
        validateJson(input.networkName, *input.validation, judge(*input.validation, *input.calibration));
  }
  json["calibration"] = input.calibration ? calibrationJson(*input.calibration) : Json();
  json["worth"] = input.validation ? worthJson(input.validation->worth) : Json::array();
  json["games"] = arrayOf(input.games, trailJson);
  return json;
}

}  // namespace quorvane::inspect

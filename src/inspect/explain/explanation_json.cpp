#include "board/square_name.h"
#include "configurations/bit_names.h"
#include "inspect/explain/explanation_output.h"
#include "inspect/patterns/summary_output.h"

namespace quorvane::inspect {

namespace {

const char* sideName(Side side) {
  return side == white ? "white" : "black";
}

Json pieceJson(const ExplainedPiece& piece) {
  return {{"square", squareName(piece.square)},
          {"side", sideName(piece.side)},
          {"kind", kindName(piece.kind)},
          {"value", piece.value},
          {"meanWorth", orNull(piece.meanWorth)}};
}

Json fullPieceJson(PositionType type, const ExplainedPiece& piece, std::size_t top) {
  Json patterns = Json::array();
  for (std::size_t place = 0; place < piece.patterns.size() && place < top; ++place) {
    const FiringPattern& pattern = piece.patterns[place];
    patterns.push_back(patternJson(type, piece.kind, pattern.mask, pattern.weight));
  }
  return joined(pieceJson(piece), {{"word", piece.word},
                                   {"bits", bitNames(type, piece.kind, piece.word)},
                                   {"identifiers", bitIdentifiers(type, piece.kind, piece.word)},
                                   {"patterns", patterns}});
}

Json decidingJson(PositionType type, const DecidingPattern& pattern) {
  Json json = joined({{"kind", kindName(pattern.kind)}},
                     patternJson(type, pattern.kind, pattern.mask, pattern.weight));
  json["own"] = arrayOf(pattern.own, squareName);
  json["opposing"] = arrayOf(pattern.opposing, squareName);
  return json;
}

Json searchedJson(const Searched& searched) {
  const bool mates = searched.movesToMate != 0;
  return {{"nodes", searched.nodes},
          {"depth", searched.depth},
          {"pawns", mates ? Json() : Json(searched.pawns)},
          {"movesToMate", mates ? Json(searched.movesToMate) : Json()},
          {"moves", searched.moves}};
}

// What the position as a whole is worth.
Json totalsJson(const Explanation& explanation) {
  return {{"type", explanation.type},
          {"typeHasPatterns", explanation.typeHasPatterns},
          {"sideToMove", sideName(explanation.sideToMove)},
          {"total", explanation.total()},
          {"expectedScore", orNull(explanation.expectedScore)},
          {"pawns", explanation.pawns},
          {"sums", {{"white", explanation.sums[white]}, {"black", explanation.sums[black]}}}};
}

}  // namespace

Json explainJson(const std::string& networkName, const Origin& origin, const Explanation& explanation,
                 std::size_t top) {
  const PositionType type = explanation.type;
  const auto pieceJson = [&](const ExplainedPiece& piece) { return fullPieceJson(type, piece, top); };
  const auto patternJson = [&](const DecidingPattern& pattern) { return decidingJson(type, pattern); };
  Json json{{"network", networkName},
            {"fen", origin.fen},
            {"players", {{"white", orNull(origin.white)}, {"black", orNull(origin.black)}}},
            {"move", orNull(origin.move)}};
  json.update(totalsJson(explanation));
  if (explanation.searched) json["searched"] = searchedJson(*explanation.searched);
  json["pieces"] = arrayOf(explanation.pieces, pieceJson);
  json["deciding"] = arrayOf(decidingPatterns(explanation, decidingPatternsTold), patternJson);
  return json;
}

Json valueJson(const std::string& fen, const Explanation& explanation) {
  Json json = joined({{"fen", fen}}, totalsJson(explanation));
  json["pieces"] = arrayOf(explanation.pieces, pieceJson);
  return json;
}

}  // namespace quorvane::inspect

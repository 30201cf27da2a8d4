#include "inspect/common/text_columns.h"
#include "inspect/games/game_tally.h"

namespace quorvane::inspect {

namespace {

using Counts = std::map<Oddity, std::size_t>;

// In front of its counts; nothing where there are none.
std::string countsText(const std::string& head, const Counts& counts) {
  std::string text;
  for (const auto& [oddity, count] : counts)
    text += (text.empty() ? head : "; ") + wordsOf(oddity).text + " (" + std::to_string(count) + ")";
  return text.empty() ? "" : text + ".";
}

Json countsJson(const Counts& counts) {
  Json json = Json::object();
  for (const auto& [oddity, count] : counts) json[wordsOf(oddity).name] = count;
  return json;
}

std::string oddText(const OddGame& game) {
  constexpr std::size_t longestName = 60;
  const GameVerdict& verdict = game.verdict;
  std::string text = "  " + std::to_string(game.number) + ": ";
  if (!game.white.empty() || !game.black.empty())
    text += printable(game.white, longestName) + " - " + printable(game.black, longestName) + ", ";
  if (!verdict.token.empty())
    text += "ply " + std::to_string(verdict.ply) + ", " + printable(verdict.token, longestToken) + ": ";
  text += wordsOf(verdict.oddity).text;
  if (verdict.samples != 0) text += ", but gave samples";
  return wrapped(text, 4);
}

Json oddJson(const OddGame& game) {
  const GameVerdict& verdict = game.verdict;
  return {{"game", game.number},
          {"white", game.white},
          {"black", game.black},
          {"samples", verdict.samples},
          {"reason", wordsOf(verdict.oddity).name},
          {"text", wordsOf(verdict.oddity).text},
          {"ply", verdict.ply},
          {"token", orNull(verdict.token)}};
}

}  // namespace

std::string tallyText(const GameTally& tally) {
  return wrapped(counted(tally.games, "game") + ", " + std::to_string(tally.withResult) + " with a result; " +
                     std::to_string(tally.withSamples) + " gave " + std::to_string(tally.samples) +
                     " samples." + countsText(" Without samples: ", tally.withoutSamples) +
                     countsText(" Odd, but with samples: ", tally.partly),
                 0);
}

Json tallyJson(const GameTally& tally) {
  return {{"games", tally.games},
          {"withResult", tally.withResult},
          {"withSamples", tally.withSamples},
          {"samples", tally.samples},
          {"withoutSamples", countsJson(tally.withoutSamples)},
          {"oddWithSamples", countsJson(tally.partly)}};
}

std::string gamesText(const std::vector<JudgedFile>& files) {
  std::string text;
  for (const JudgedFile& judged : files) {
    text += (text.empty() ? "" : "\n") + judged.file + "\n" + tallyText(judged.tally);
    for (const OddGame& game : judged.odd) text += oddText(game);
  }
  return text;
}

Json gamesJson(const std::vector<JudgedFile>& files) {
  return {{"files", arrayOf(files, [](const JudgedFile& judged) {
             Json json = joined({{"file", judged.file}}, tallyJson(judged.tally));
             json["odd"] = arrayOf(judged.odd, oddJson);
             return json;
           })}};
}

}  // namespace quorvane::inspect

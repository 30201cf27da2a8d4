#include "inspect/common/text_columns.h"
#include "inspect/text_output.h"

namespace quorvane::inspect {

namespace {

constexpr std::size_t longestToken = 20;
constexpr std::size_t longestName = 60;

std::string countsText(const std::map<Oddity, std::size_t>& counts) {
  std::string text;
  for (const auto& [oddity, count] : counts) {
    if (!text.empty()) text += "; ";
    text.append(oddityText(oddity)).append(" (").append(std::to_string(count)).append(")");
  }
  return text;
}

std::string oddText(const OddGame& game) {
  const GameVerdict& verdict = game.verdict;
  std::string text = "  " + std::to_string(game.number) + ": ";
  if (!game.white.empty() || !game.black.empty()) {
    text += printable(game.white, longestName) + " - " + printable(game.black, longestName) + ", ";
  }
  if (!verdict.token.empty())
    text += "ply " + std::to_string(verdict.ply) + ", " + printable(verdict.token, longestToken) + ": ";
  text += oddityText(verdict.oddity);
  if (verdict.samples != 0) text += ", but gave samples";
  return wrapped(text, 4);
}

}  // namespace

std::string tallyText(const GameTally& tally) {
  std::string text = std::to_string(tally.games) + (tally.games == 1 ? " game, " : " games, ") +
                     std::to_string(tally.withResult) + " with a result; " +
                     std::to_string(tally.withSamples) + " gave " + std::to_string(tally.samples) +
                     " samples.";
  if (!tally.withoutSamples.empty()) text += " Without samples: " + countsText(tally.withoutSamples) + ".";
  if (!tally.partly.empty()) text += " Odd, but with samples: " + countsText(tally.partly) + ".";
  return wrapped(text, 0);
}

std::string gamesText(const std::vector<FileReport>& files) {
  std::string text;
  for (const FileReport& report : files) {
    text += (text.empty() ? "" : "\n") + report.file + "\n" + tallyText(report.tally);
    for (const OddGame& game : report.odd) text += oddText(game);
  }
  return text;
}

}  // namespace quorvane::inspect

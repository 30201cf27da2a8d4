#include "play/match/match_output.h"

#include <algorithm>
#include <cmath>
#include <cstdio>

#include "files/file_name.h"
#include "play/position/move_text.h"

namespace quorvane::play {

namespace {

std::string fixed(double number, int digits, bool sign = false) {
  char text[64];
  std::snprintf(text, sizeof text, sign ? "%+.*f" : "%.*f", digits, number);
  return text;
}

std::string inQuotes(const std::string& text) {
  std::string quoted = "\"";
  for (const char character : inOneLine(text)) {
    if (character == '"' || character == '\\') quoted += '\\';
    quoted += character;
  }
  return quoted + '"';
}

std::string tag(const char* name, const std::string& value) {
  return std::string("[") + name + ' ' + inQuotes(value) + "]\n";
}

// As annotators write it: in pawns, or "#-3" where Black mates in three.
std::string evalText(std::int32_t score) {
  if (isMate(score)) return std::string("#").append(std::to_string(movesToMate(score)));
  return fixed(score / 100.0, 2);
}

const char* resultOf(const PlayedGame& game) {
  return game.points == 2 ? "1-0" : game.points == 0 ? "0-1" : "1/2-1/2";
}

// Words in lines of less than 80 characters.
class WrappedText {
 public:
  void add(const std::string& word) {
    constexpr std::size_t longest = 79;
    if (!text.empty()) {
      const bool fits = column + 1 + word.size() <= longest;
      text += fits ? ' ' : '\n';
      column = fits ? column + 1 : 0;
    }
    text += word;
    column += word.size();
  }
  std::string text;

 private:
  std::size_t column = 0;
};

std::string movesText(const Opening& opening, const PlayedGame& game) {
  WrappedText text;
  Position position = opening.start;
  bool needsNumber = true;
  const auto add = [&](Move move) {
    const bool whiteMoves = position.sideToMove == white;
    if (whiteMoves || needsNumber) text.add(std::to_string(position.moveNumber) + (whiteMoves ? "." : "..."));
    text.add(standardNotation(position, move));
    position.make(move);
    needsNumber = false;
  };
  for (const Move move : opening.moves) add(move);
  for (const PlayedMove& played : game.moves) {
    const bool whiteMoves = position.sideToMove == white;
    add(played.move);
    text.add("{ [%eval " + evalText(whiteMoves ? played.score : -played.score) + "] }");
    needsNumber = true;
  }
  text.add(resultOf(game));
  return text.text + '\n';
}

std::string gamePgn(const Contender& whitePlayer, const Contender& blackPlayer, const MatchPlan& plan,
                    const std::string& round, const Opening& opening, const PlayedGame& game) {
  std::string text = tag("Event", "quorvane-play match, " + std::to_string(plan.nodes) + " nodes a move");
  text += tag("Site", "?") + tag("Date", "????.??.??") + tag("Round", round);
  text += tag("White", whitePlayer.name) + tag("Black", blackPlayer.name) + tag("Result", resultOf(game));
  text += tag("WhiteNetwork", whitePlayer.knowledge.fingerprint());
  text += tag("BlackNetwork", blackPlayer.knowledge.fingerprint());
  const std::string fen = opening.start.fen();
  if (fen != Position::usualStart) text += tag("SetUp", "1") + tag("FEN", fen);
  return text + tag("Termination", game.reason) + '\n' + movesText(opening, game) + '\n';
}

}  // namespace

std::string matchText(const std::string& first, const std::string& second, const MatchPlan& plan,
                      const MatchScore& score) {
  const EloInterval elo = eloInterval(score);
  std::string text = "A  " + inOneLine(first) + "\nB  " + inOneLine(second) + "\n\nnodes a move  " +
                     std::to_string(plan.nodes) + "\ngames         " + std::to_string(2 * score.pairCount()) +
                     ": A won " + std::to_string(score.wins) + ", drawn " + std::to_string(score.draws) +
                     ", B won " + std::to_string(score.losses) + "\npairs         ";
  constexpr const char* results[] = {"0", "1/2", "1", "3/2", "2"};
  for (std::int32_t i = 4; i >= 0; --i)
    text += std::to_string(score.pairs[i]) + " with " + results[i] + (i > 0 ? ", " : "\n");
  text += "A's score     " + fixed(100.0 * score.mean(), 1) + " %\nElo           " + fixed(elo.elo, 0, true) +
          " [" + fixed(elo.low, 0, true) + ", " + fixed(elo.high, 0, true) + "]\n";
  if (plan.test) {
    const double ratio = logLikelihoodRatio(score, plan.test->elo0, plan.test->elo1);
    text += "test          log likelihood ratio " + fixed(ratio, 2, true) + " of " +
            fixed(likelihoodLimit, 2) +
            (ratio >= likelihoodLimit    ? ": at least " + fixed(plan.test->elo1, 0)
             : ratio <= -likelihoodLimit ? ": at most " + fixed(plan.test->elo0, 0)
                                         : ": between " + fixed(plan.test->elo0, 0) + " and " +
                                               fixed(plan.test->elo1, 0) + " it cannot tell") +
            " Elo\n";
  }
  return text + '\n' + verdict(score) + '\n';
}

std::string matchJson(const std::string& first, const std::string& second, const MatchPlan& plan,
                      const MatchScore& score) {
  const EloInterval elo = eloInterval(score);
  std::string text = "{\"a\":" + inQuotes(first) + ",\"b\":" + inQuotes(second) +
                     ",\"nodes\":" + std::to_string(plan.nodes) + ",\"wins\":" + std::to_string(score.wins) +
                     ",\"draws\":" + std::to_string(score.draws) +
                     ",\"losses\":" + std::to_string(score.losses) + ",\"pairs\":[";
  for (std::int32_t i = 0; i < 5; ++i) text.append(i == 0 ? "" : ",").append(std::to_string(score.pairs[i]));
  text += "],\"score\":" + fixed(score.mean(), 6) + ",\"elo\":" + fixed(elo.elo, 2) +
          ",\"low\":" + fixed(elo.low, 2) + ",\"high\":" + fixed(elo.high, 2);
  if (plan.test) {
    text +=
        ",\"test\":{\"elo0\":" + fixed(plan.test->elo0, 2) + ",\"elo1\":" + fixed(plan.test->elo1, 2) +
        ",\"logLikelihoodRatio\":" + fixed(logLikelihoodRatio(score, plan.test->elo0, plan.test->elo1), 4) +
        "}";
  }
  return text + ",\"verdict\":" + inQuotes(verdict(score)) + "}\n";
}

std::string pairPgn(const Contender& first, const Contender& second, const MatchPlan& plan, std::size_t index,
                    const PlayedPair& pair) {
  const std::string round = std::to_string(index + 1);
  const Opening& opening = plan.openings[index];
  return gamePgn(first, second, plan, round + ".1", opening, pair.first) +
         gamePgn(second, first, plan, round + ".2", opening, pair.second);
}

}  // namespace quorvane::play

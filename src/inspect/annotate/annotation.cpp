#include "inspect/annotate/annotation.h"

#include <algorithm>
#include <cassert>
#include <optional>
#include <sstream>
#include <string_view>
#include <utility>
#include <vector>

#include "inspect/annotate/eval_comment.h"
#include "inspect/common/game_files.h"
#include "inspect/position/position.h"
#include "pgn/token_reader.h"

namespace quorvane::inspect {

namespace {

// A text that is copied from beginning to end, with some of it replaced.
class ChangedCopy {
 public:
  explicit ChangedCopy(std::string_view source) : text(source) {}

  // Each no earlier in the text than the last one.
  void replace(std::size_t begin, std::size_t end, std::string_view replacement) {
    assert(copied <= begin && begin <= end && end <= text.size());
    copy.append(text, copied, begin - copied).append(replacement);
    copied = end;
  }
  void insert(std::size_t at, std::string_view inserted) { replace(at, at, inserted); }

  std::string finish() {
    insert(text.size(), "");
    return std::move(copy);
  }

 private:
  std::string_view text;
  std::string copy;
  std::size_t copied = 0;
};

struct ValuedMove {
  std::size_t token;            // its index in the game
  std::optional<double> pawns;  // of the position behind it, as White sees it
};

class Annotator : public Position {
 public:
  Annotator(std::stringstream& source, const NetworkTable& table, const Calibration& curves)
      : text(source.view()), calibration(curves), reader(source), copy(text), value(table) {}

  void addGame(std::int32_t number, PgnGame& game) {
    const std::vector<TokenPlace> tokens = readPlaces();
    const GameVerdict verdict = judgeMoves(game);
    if (verdict.oddity != Oddity::none) {
      GamesLeft& left = tally.left[verdict.oddity];
      if (left.games == 0) left = {0, number, verdict};
      ++left.games;
      return;
    }
    const std::vector<ValuedMove> moves = valuedMoves(game);
    const bool anyValue = std::ranges::any_of(moves, [](const auto& move) { return move.pawns.has_value(); });
    ++(anyValue ? tally.games : tally.withoutValues);
    for (std::size_t index = 0; index < moves.size(); ++index) {
      const std::size_t end = index + 1 < moves.size() ? moves[index + 1].token : tokens.size();
      annotate(moves[index], end, tokens, game.tokens);
    }
  }

  Annotation finish() { return {copy.finish(), std::move(tally)}; }

 private:
  // Of the next game's tokens, read once more.
  std::vector<TokenPlace> readPlaces() {
    TextBuilder ignored;
    while (reader.atTag()) reader.readTag(ignored);
    std::vector<TokenPlace> places;
    reader.readTokens(ignored, places);
    return places;
  }

  // All moves of a game of which all can be played.
  std::vector<ValuedMove> valuedMoves(PgnGame& game) {
    std::vector<ValuedMove> moves;
    game.tokenCursor = 0;
    setupPosition(game.placement, game.sideToMove);
    for (DecodedMove move; game.nextMove(move) && playGameMove(move);) {
      moves.push_back({static_cast<std::size_t>(game.tokenCursor - 1), pawnsOfBoard()});
    }
    return moves;
  }

  std::optional<double> pawnsOfBoard() {
    const DescribedPosition position = described();
    const std::optional<double> expected = calibration.expectedScore(position.words.type, value.of(position));
    if (!expected) return {};
    const double pawns = pawnsOfScore(*expected);
    return currentMove.sideToMove == white ? pawns : -pawns;
  }

  // A place in a file that is in memory as a whole.
  static std::size_t inText(std::uint64_t place) { return static_cast<std::size_t>(place); }

  // The tokens up to `end` are those between the move and the next.
  void annotate(const ValuedMove& move, std::size_t end, const std::vector<TokenPlace>& tokens,
                const TextList& tokenTexts) {
    ++(move.pawns ? tally.moves : tally.unknownMoves);
    const std::string command = move.pawns ? evalCommand(*move.pawns) : "";
    bool replaced = false;
    for (std::size_t index = move.token + 1; index < end; ++index) {
      if (!tokenTexts[index].starts_with('{')) continue;
      const std::size_t begin = inText(tokens[index].begin);
      for (const Stretch& old : evalCommandsIn(text.substr(begin, inText(tokens[index].end) - begin))) {
        copy.replace(begin + old.begin, begin + old.end, command);
        replaced = true;
      }
    }
    if (replaced || !move.pawns) return;
    // Glyphs stay next to their move, as programs write them.
    std::size_t last = move.token;
    while (last + 1 < end && isGlyph(tokenTexts[last + 1])) ++last;
    copy.insert(inText(tokens[last].end), " { " + command + " }");
  }

  std::string_view text;
  const Calibration& calibration;
  TokenReader reader;
  ChangedCopy copy;
  AnnotationTally tally;
  PositionValue value;
};

}  // namespace

Annotation annotateGames(const std::string& file, const NetworkTable& table, const Calibration& calibration,
                         const ShowProgress& showProgress) {
  GameText games = loadGameText(file);
  Annotator annotator(games.bytes, table, calibration);
  forEachGame(games.database, file, showProgress,
              [&](std::int32_t number, PgnGame& game) { annotator.addGame(number, game); });
  return annotator.finish();
}

}  // namespace quorvane::inspect

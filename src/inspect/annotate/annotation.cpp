#include "inspect/annotate/annotation.h"

#include <algorithm>
#include <cassert>
#include <optional>
#include <span>
#include <string_view>
#include <utility>
#include <vector>

#include "inspect/annotate/eval_comment.h"
#include "inspect/common/game_files.h"
#include "inspect/position/position_value.h"
#include "inspect/position/san_game.h"

namespace quorvane::inspect {

namespace {

// A text that is copied from beginning to end, with some of it replaced.
class ChangedCopy {
 public:
  explicit ChangedCopy(std::string_view source) : text(source) {}

  // Each no earlier in the text than the last one; what that has replaced already is left as it is.
  void replace(std::size_t begin, std::size_t end, std::string_view replacement) {
    begin = std::max(begin, copied);
    assert(begin <= end && end <= text.size());
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

// A move and what stands behind it, up to the next one. What stands before the first move, behind the last
// that can be read, and behind the result has no move.
struct AnnotatedMove {
  std::size_t first;  // of its elements in the game
  bool isMove;
  std::string command;  // that gives the value of the position behind it; empty if there is none
};

// The value of an Annotator tag that had this one before: names stay, our own of before is replaced.
std::string signedBy(const std::string& signature, std::string_view before) {
  const std::string_view program = std::string_view(signature).substr(0, signature.find(' '));
  const std::size_t own = before.find(program);
  if (own != std::string_view::npos) {
    // The program and its version, the network.
    std::size_t end = before.find(", ", own);
    if (end != std::string_view::npos) end = before.find(", ", end + 1);
    const std::string_view behind = end == std::string_view::npos ? "" : before.substr(end);
    return std::string(before.substr(0, own)) + signature + std::string(behind);
  }
  const bool nobody = before.find_first_not_of("? ") == std::string_view::npos;
  return nobody ? signature : std::string(before) + ", " + signature;
}

class Annotator {
 public:
  Annotator(std::string_view games, const AnnotatingNetwork& by)
      : network(by), text(games), copy(text), value(by.table) {}

  void addGame(std::int32_t number, const GameParts& read) {
    if (network.lookAhead != nullptr) network.lookAhead->forget();
    playGame(read, number);
    const bool anyValue = std::ranges::any_of(moves, [](const auto& move) { return !move.command.empty(); });
    ++(anyValue ? tally.games : tally.withoutValues);
    if (anyValue) sign(read);
    for (const AnnotatedMove& move : moves) annotate(move);
  }

  Annotation finish() { return {copy.finish(), std::move(tally)}; }

 private:
  // Leaves the game's elements and moves.
  void playGame(const GameParts& game, std::int32_t number) {
    elements.clear();
    moves.assign(1, {0, false, ""});
    MoveText reader(game.moves);
    SanGame replay(game);
    bool readable = true;
    while (const std::optional<MoveElement> element = reader.next()) {
      const SanFault fault = readable ? replay.play(*element) : SanFault::none;
      if (fault != SanFault::none) {
        readable = false;
        ++tally.unread.try_emplace(fault, UnreadGames{0, number, moves.size(), std::string(element->text)})
              .first->second.games;
        moves.push_back({elements.size(), false, ""});
      } else if (readable && element->kind == MoveElement::move) {
        moves.push_back({elements.size(), true, commandOf(replay)});
      }
      elements.push_back(*element);
      if (element->kind == MoveElement::result) moves.push_back({elements.size(), false, ""});
    }
  }

  std::string commandOf(const SanGame& replay) {
    const play::Position& position = replay.position();
    const double side = position.sideToMove == white ? 1.0 : -1.0;
    if (network.lookAhead != nullptr) {
      const Searched searched = network.lookAhead->at(position, replay.earlierKeys());
      if (!searched.isOver && searched.movesToMate != 0)
        return mateCommand(static_cast<std::int32_t>(side) * searched.movesToMate);
      const bool isMated = searched.isOver && position.inCheck();
      return evalCommand(side * (isMated ? -mostPawns : searched.pawns));
    }
    const PositionWords words = describe(position);
    const std::optional<double> expected =
        network.calibration.expectedScore(words.type, value.of({position, words}));
    return expected ? evalCommand(side * pawnsOfScore(*expected)) : "";
  }

  std::size_t placeOf(std::string_view part) const {
    return static_cast<std::size_t>(part.data() - text.data());
  }

  // Says in the game's Annotator tag who gave the values.
  void sign(const GameParts& game) {
    if (const std::optional<std::string_view> before = game.tagValue("Annotator")) {
      const std::size_t begin = placeOf(*before);
      return copy.replace(begin, begin + before->size(), signedBy(network.signature, *before));
    }
    const std::string tag = "[Annotator \"" + network.signature + "\"]";
    if (game.tags.empty()) return copy.insert(placeOf(game.moves), tag + "\n\n");
    const std::size_t behind = placeOf(game.tags.back()) + game.tags.back().size();
    copy.insert(behind, (text.substr(behind).starts_with('\r') ? "\r\n" : "\n") + tag);
  }

  void annotate(const AnnotatedMove& move) {
    const std::string& command = move.command;
    if (move.isMove) ++(command.empty() ? tally.unknownMoves : tally.moves);
    const std::span<const MoveElement> own = elementsOf(move);
    const bool replaces = std::ranges::any_of(own, hasEval);
    const MoveElement* const place = !command.empty() && !replaces ? &placeOfNew(own) : nullptr;
    for (const MoveElement& element : own) {
      replaceEvals(element, element.kind == MoveElement::comment ? command : "");
      if (&element == place) putInto(element, command);
    }
  }

  void putInto(const MoveElement& element, const std::string& command) {
    const std::size_t begin = placeOf(element.text);
    const std::size_t end = begin + element.text.size();
    if (element.kind != MoveElement::comment) return copy.insert(end, " { " + command + " }");
    if (element.text.starts_with('{')) {
      // The utility takes a bracket that is glued to a word for a part of it, and what follows for tokens.
      if (begin > 0 && !isSpace(text[begin - 1])) copy.insert(begin, " ");
      return copy.insert(begin + evalPlaceIn(element.text), command + " ");
    }
    // Behind a semicolon the utility would take the bracket for a tag's.
    copy.replace(begin, begin + 1, "{ " + command);
    copy.insert(end, " }");
  }

  std::span<const MoveElement> elementsOf(const AnnotatedMove& move) const {
    const std::size_t next = static_cast<std::size_t>(&move - moves.data()) + 1;
    const std::size_t end = next < moves.size() ? moves[next].first : elements.size();
    return std::span(elements).subspan(move.first, end - move.first);
  }

  static bool hasEval(const MoveElement& element) {
    return element.kind == MoveElement::comment && !evalCommandsIn(element.text).empty();
  }

  // The comment that takes the command of a move, or what it stands behind in a comment of its own. Many
  // readers take one comment behind a move and no more.
  static const MoveElement& placeOfNew(std::span<const MoveElement> own) {
    const auto takes = [&](const MoveElement& element) {
      const bool follows = &element != own.data();
      return element.kind == MoveElement::comment && !(follows && swallows(*(&element - 1))) &&
             (element.text.front() == '{' || element.text.find('}') == std::string_view::npos);
    };
    const auto withCommand = std::ranges::find_if(own, [&](const MoveElement& element) {
      return takes(element) && element.text.find("[%") != std::string_view::npos;
    });
    if (withCommand != own.end()) return *withCommand;
    const auto comment = std::ranges::find_if(own, takes);
    if (comment != own.end()) return *comment;
    // Glyphs stay next to their move, as programs write them.
    std::size_t last = 0;
    while (last + 1 < own.size() && own[last + 1].kind == MoveElement::glyph && !swallows(own[last + 1]))
      ++last;
    return own[last];
  }

  // The utility reads a glyph of one character together with the word behind it.
  static bool swallows(const MoveElement& element) {
    return element.kind == MoveElement::glyph && element.text.size() == 1;
  }

  // Takes them out where the command is empty.
  void replaceEvals(const MoveElement& element, const std::string& command) {
    if (element.kind != MoveElement::comment && element.kind != MoveElement::variation) return;
    const std::size_t begin = placeOf(element.text);
    for (const Stretch& eval : evalCommandsIn(element.text)) {
      const Stretch inText{begin + eval.begin, begin + eval.end};
      const Stretch old = command.empty() ? withItsSpace(text, inText) : inText;
      copy.replace(old.begin, old.end, command);
    }
  }

  const AnnotatingNetwork& network;
  std::string_view text;
  ChangedCopy copy;
  AnnotationTally tally;
  PositionValue value;
  // Of the game at work.
  std::vector<MoveElement> elements;
  std::vector<AnnotatedMove> moves;
};

}  // namespace

Annotation annotateGames(const std::string& file, const AnnotatingNetwork& network,
                         const ShowProgress& showProgress) {
  const std::unique_ptr<const GameText> text = loadGameText(file);
  const auto count = static_cast<std::int32_t>(text->games.size());
  Annotator annotator(text->bytes, network);
  for (std::int32_t number = 1; number <= count; ++number) {
    annotator.addGame(number, text->games[static_cast<std::size_t>(number) - 1]);
    showProgress(file, number, count);
  }
  return annotator.finish();
}

}  // namespace quorvane::inspect

#ifndef QUORVANE_INSPECT_COMMON_MOVE_TEXT_H_
#define QUORVANE_INSPECT_COMMON_MOVE_TEXT_H_

#include <optional>
#include <string_view>

namespace quorvane::inspect {

// A part of what stands behind the tags of a game.
struct MoveElement {
  enum Kind {
    move,       // or a word that might be one, in front of the result
    comment,    // in braces, or from a semicolon to the end of the line
    variation,  // in parentheses, with all that is in it
    glyph,      // $14, !?, e.p.
    result,     // 1-0, 0-1, 1/2-1/2, *
    other       // numbers of moves, a line that begins with %, and what nobody knows
  };
  Kind kind;
  std::string_view text;  // as it stands there, with its brackets
};

// Reads the text of a game's moves as the PGN standard has it, with variations inside of variations. A
// variation that nothing closes ends where a line begins with a tag, a comment with the text.
class MoveText {
 public:
  // `moves` must outlive the reader, and be all there is: what stands before it is looked at by nobody.
  explicit MoveText(std::string_view moves) : text(moves) {}

  // Nothing at the end of the text, or where the tags of another game begin.
  std::optional<MoveElement> next();
  // Where the next element begins.
  std::size_t position() const { return at; }

 private:
  MoveElement take(MoveElement::Kind kind, std::size_t end);
  std::size_t behind(char closing) const;
  std::size_t endOfVariation() const;
  MoveElement word();

  std::string_view text;
  std::size_t at = 0;
  bool hasEnded = false;  // the result was met
};

}  // namespace quorvane::inspect

#endif  // QUORVANE_INSPECT_COMMON_MOVE_TEXT_H_

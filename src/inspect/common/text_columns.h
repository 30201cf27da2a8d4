#ifndef QUORVANE_INSPECT_COMMON_TEXT_COLUMNS_H_
#define QUORVANE_INSPECT_COMMON_TEXT_COLUMNS_H_

#include <cassert>
#include <string>
#include <string_view>
#include <vector>

namespace quorvane::inspect {

// With that many digits behind the point, and a sign if it is negative.
std::string fixed(double number, int digits);

// The same with a sign in any case, but for what rounds to 0.
std::string withSign(double number, int digits = 2);

// "51 %"
std::string asPercent(double share);

// "1 game", "2 games".
std::string counted(std::size_t count, const std::string& what);

// Breaks a text between words, so that no line is longer than 80 characters. Every line but the first is
// indented by so many blanks; the text brings the indent of the first line itself. Ends with a line end.
std::string wrapped(const std::string& text, std::size_t indent);

// Text from a file, fit to be printed on one line: without control characters, and not longer than `longest`.
std::string printable(std::string_view text, std::size_t longest);
inline constexpr std::size_t longestToken = 20;  // of a game's moves

// Lines of cells, one under the other.
class TextColumns {
 public:
  // One letter for each column: l for left, r for right.
  explicit TextColumns(std::string_view columnSides) : sides(columnSides) {}

  // A line may have fewer cells than there are columns.
  void add(std::vector<std::string> cells) {
    assert(cells.size() <= sides.size());
    lines.push_back(std::move(cells));
  }

  // Two blanks in front of each line and between columns.
  std::string str() const;

 private:
  std::string sides;
  std::vector<std::vector<std::string>> lines;
};

}  // namespace quorvane::inspect

#endif  // QUORVANE_INSPECT_COMMON_TEXT_COLUMNS_H_

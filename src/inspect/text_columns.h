#ifndef QUORVANE_INSPECT_TEXT_COLUMNS_H_
#define QUORVANE_INSPECT_TEXT_COLUMNS_H_

#include <string>
#include <string_view>
#include <vector>

namespace quorvane {

// With a sign if it is negative and two digits behind the point.
std::string twoDigits(double number);

// As the utility prints its own figures: the general form with six significant digits.
std::string sixDigits(double number);

// Lines of cells, one under the other.
class TextColumns {
 public:
  // One letter for each column: l for left, r for right.
  explicit TextColumns(std::string_view columnSides) : sides(columnSides) {}

  // A line may have fewer cells than there are columns.
  void add(std::vector<std::string> cells) { lines.push_back(std::move(cells)); }

  // Two blanks in front of each line and between columns.
  std::string str() const;

 private:
  std::string sides;
  std::vector<std::vector<std::string>> lines;
};

}  // namespace quorvane

#endif  // QUORVANE_INSPECT_TEXT_COLUMNS_H_

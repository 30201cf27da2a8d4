#include "inspect/text_columns.h"

#include <algorithm>
#include <iomanip>
#include <sstream>

namespace quorvane {

std::string twoDigits(double number) {
  std::ostringstream text;
  text << std::fixed << std::setprecision(2) << number;
  return text.str();
}

std::string sixDigits(double number) {
  std::ostringstream text;
  text << number;
  return text.str();
}

std::string TextColumns::str() const {
  std::vector<std::size_t> widths(sides.size());
  for (const auto& line : lines) {
    for (std::size_t column = 0; column < line.size(); ++column) {
      widths[column] = std::max(widths[column], line[column].size());
    }
  }
  std::string text;
  for (const auto& line : lines) {
    for (std::size_t column = 0; column < line.size(); ++column) {
      const std::string padding(widths[column] - line[column].size(), ' ');
      text += "  " + (sides[column] == 'l' ? line[column] + padding : padding + line[column]);
    }
    text.erase(text.find_last_not_of(' ') + 1);
    text += '\n';
  }
  return text;
}

}  // namespace quorvane

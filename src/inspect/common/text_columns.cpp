#include "inspect/common/text_columns.h"

#include <algorithm>
#include <iomanip>
#include <sstream>

namespace quorvane::inspect {

std::string fixed(double number, int digits) {
  std::ostringstream text;
  text << std::fixed << std::setprecision(digits) << number;
  // No "-0.0".
  return text.str().find_first_of("123456789") == std::string::npos ? text.str().substr(text.str()[0] == '-')
                                                                    : text.str();
}

std::string withSign(double number, int digits) {
  const std::string text = fixed(number, digits);
  return number > 0.0 && text.find_first_of("123456789") != std::string::npos ? "+" + text : text;
}

std::string asPercent(double share) {
  return fixed(100.0 * share, 0) + " %";
}

std::string counted(std::size_t count, const std::string& what) {
  return std::to_string(count) + " " + what + (count == 1 ? "" : "s");
}

std::string wrapped(const std::string& text, std::size_t indent) {
  constexpr std::size_t width = 80;
  std::string lines;
  std::size_t begin = 0;
  std::size_t room = width;
  while (text.size() - begin > room) {
    std::size_t end = text.rfind(' ', begin + room);
    while (end != std::string::npos && text.substr(end, 2) == " %") end = text.rfind(' ', end - 1);
    if (end == std::string::npos || end <= text.find_first_not_of(' ', begin))
      end = text.find(' ', begin + room);
    if (end == std::string::npos) break;
    lines += text.substr(begin, end - begin) + '\n' + std::string(indent, ' ');
    begin = end + 1;
    room = width - indent;
  }
  return lines + text.substr(begin) + '\n';
}

std::string printable(std::string_view text, std::size_t longest) {
  std::string clean(text.substr(0, longest));
  std::ranges::replace_if(
      clean, [](unsigned char byte) { return byte < ' ' || byte == 127; }, '?');
  return text.size() > longest ? clean + "..." : clean;
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

}  // namespace quorvane::inspect

#include "inspect/common/json.h"

#include <array>
#include <charconv>

namespace quorvane::inspect {

double shortest(float number) {
  std::array<char, 32> text;
  const auto written = std::to_chars(text.data(), text.data() + text.size(), number);
  double value = 0.0;
  std::from_chars(text.data(), written.ptr, value);
  return value;
}

double shortest(double number) {
  const auto single = static_cast<float>(number);
  return static_cast<double>(single) == number ? shortest(single) : number;
}

std::string textOf(const Json& json, bool indented) {
  return json.dump(indented ? 2 : -1, ' ', false, Json::error_handler_t::replace) + "\n";
}

}  // namespace quorvane::inspect

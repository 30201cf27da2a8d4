#ifndef QUORVANE_INSPECT_COMMON_JSON_H_
#define QUORVANE_INSPECT_COMMON_JSON_H_

#include <initializer_list>
#include <nlohmann/json.hpp>
#include <optional>
#include <string>

namespace quorvane::inspect {

// The shapes of docs/inspect.md.
using Json = nlohmann::ordered_json;

// The shortest decimal number that reads back as the same 32-bit float.
double shortest(float number);
// The same for a number that is one; any other stays as it is.
double shortest(double number);

// Null where there is nothing.
inline Json orNull(const std::optional<double>& number) {
  return number ? Json(*number) : Json();
}
inline Json orNull(const std::string& text) {
  return text.empty() ? Json() : Json(text);
}

// What jsonOf(item) makes of each of the items.
template <typename Items, typename JsonOf>
Json arrayOf(const Items& items, JsonOf jsonOf) {
  Json array = Json::array();
  for (const auto& item : items) array.push_back(jsonOf(item));
  return array;
}

// The fields of `first`, then those of `second`.
inline Json joined(Json first, const Json& second) {
  first.update(second);
  return first;
}

// Without some of its fields.
inline Json without(Json json, std::initializer_list<const char*> fields) {
  for (const char* const field : fields) json.erase(field);
  return json;
}

// Text of the JSON, with a line end, over several lines or on one. What is no UTF-8 in names of files is
// replaced.
std::string textOf(const Json& json, bool indented = true);

}  // namespace quorvane::inspect

#endif  // QUORVANE_INSPECT_COMMON_JSON_H_

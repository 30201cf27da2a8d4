#ifndef QUORVANE_EVALUATOR_JSON_VALUE_H_
#define QUORVANE_EVALUATOR_JSON_VALUE_H_

#include <stdexcept>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace quorvane::evaluator {

// What was read is no JSON, or holds something else than what was asked for.
class BadJson : public std::runtime_error {
  using std::runtime_error::runtime_error;
};

// A text of JSON (RFC 8259), read strictly; as much of it as a calibration needs, so that the library depends
// on nothing. Of strings, what \u stands for is left out.
class JsonValue {
 public:
  // Throws BadJson if the text is none, or deeper than anybody writes it.
  static JsonValue parse(std::string_view text);

  // All but the first throw BadJson if the value is something else.
  bool isNull() const { return kind == Kind::null; }
  double number() const;
  const std::string& string() const;
  const std::vector<JsonValue>& array() const;
  // A member of an object; throws too if there is none.
  const JsonValue& at(std::string_view name) const;

 private:
  friend class JsonReader;
  enum class Kind { null, boolean, number, string, array, object };

  void require(Kind wanted) const;

  Kind kind = Kind::null;
  double numeric = 0.0;
  std::string text;
  std::vector<JsonValue> values;   // of an array, or of the members
  std::vector<std::string> names;  // of the members
};

}  // namespace quorvane::evaluator

#endif  // QUORVANE_EVALUATOR_JSON_VALUE_H_

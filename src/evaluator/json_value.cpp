#include "evaluator/json_value.h"

#include <algorithm>
#include <charconv>

namespace quorvane::evaluator {

class JsonReader {
 public:
  explicit JsonReader(std::string_view text) : rest(text) {}

  JsonValue readAll() {
    JsonValue value = readValue(0);
    skipWhiteSpace();
    require(rest.empty());
    return value;
  }

 private:
  using Kind = JsonValue::Kind;

  static void require(bool holds) {
    if (!holds) throw BadJson("is no JSON");
  }

  void skipWhiteSpace() { rest.remove_prefix(std::min(rest.find_first_not_of(" \t\n\r"), rest.size())); }

  bool take(std::string_view token) {
    if (!rest.starts_with(token)) return false;
    rest.remove_prefix(token.size());
    return true;
  }

  JsonValue readValue(int depth) {
    constexpr int deepest = 32;
    require(depth < deepest);
    skipWhiteSpace();
    JsonValue value;
    if (take("null")) return value;
    if (take("true") || take("false")) {
      value.kind = Kind::boolean;
    } else if (rest.starts_with('"')) {
      value.kind = Kind::string;
      value.text = readString();
    } else if (take("[")) {
      value.kind = Kind::array;
      readList(value, "]", depth, false);
    } else if (take("{")) {
      value.kind = Kind::object;
      readList(value, "}", depth, true);
    } else {
      value.kind = Kind::number;
      value.numeric = readNumber();
    }
    return value;
  }

  void readList(JsonValue& list, std::string_view closing, int depth, bool named) {
    skipWhiteSpace();
    if (take(closing)) return;
    do {
      if (named) {
        skipWhiteSpace();
        list.names.push_back(readString());
        skipWhiteSpace();
        require(take(":"));
      }
      list.values.push_back(readValue(depth + 1));
      skipWhiteSpace();
    } while (take(","));
    require(take(closing));
  }

  std::string readString() {
    require(take("\""));
    std::string text;
    while (!take("\"")) {
      require(!rest.empty() && static_cast<unsigned char>(rest.front()) >= ' ');
      if (take("\\")) {
        readEscape(text);
      } else {
        text += rest.front();
        rest.remove_prefix(1);
      }
    }
    return text;
  }

  void readEscape(std::string& text) {
    constexpr std::string_view escapes = "\"\\/bfnrt";
    constexpr std::string_view meanings = "\"\\/\b\f\n\r\t";
    require(!rest.empty());
    const std::size_t place = escapes.find(rest.front());
    if (place != escapes.npos) {
      text += meanings[place];
      rest.remove_prefix(1);
      return;
    }
    constexpr std::size_t digits = 4;
    require(take("u") && rest.size() >= digits &&
            rest.substr(0, digits).find_first_not_of("0123456789abcdefABCDEF") == rest.npos);
    rest.remove_prefix(digits);
  }

  double readNumber() {
    const std::string_view written = rest.substr(0, rest.find_first_not_of("+-.0123456789eE"));
    // What from_chars takes and JSON does not.
    std::string_view digits = written;
    if (digits.starts_with('-')) digits.remove_prefix(1);
    const auto isDigit = [](char character) { return character >= '0' && character <= '9'; };
    require(!digits.empty() && isDigit(digits.front()));
    require(digits.size() == 1 || digits.front() != '0' || !isDigit(digits[1]));
    const std::size_t period = digits.find('.');
    require(period == digits.npos || (period + 1 < digits.size() && isDigit(digits[period + 1])));
    double number = 0.0;
    const auto [end, error] = std::from_chars(written.data(), written.data() + written.size(), number);
    require(error == std::errc{} && end == written.data() + written.size());
    rest.remove_prefix(written.size());
    return number;
  }

  std::string_view rest;
};

JsonValue JsonValue::parse(std::string_view text) {
  return JsonReader(text).readAll();
}

void JsonValue::require(Kind wanted) const {
  if (kind != wanted) throw BadJson("holds something else");
}

double JsonValue::number() const {
  require(Kind::number);
  return numeric;
}

const std::string& JsonValue::string() const {
  require(Kind::string);
  return text;
}

const std::vector<JsonValue>& JsonValue::array() const {
  require(Kind::array);
  return values;
}

const JsonValue& JsonValue::at(std::string_view name) const {
  require(Kind::object);
  const auto found = std::ranges::find(names, name);
  if (found == names.end()) throw BadJson("lacks a member");
  return values[static_cast<std::size_t>(found - names.begin())];
}

}  // namespace quorvane::evaluator

// SPDX-License-Identifier: MIT
#pragma once

#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace scourwell {

// A text as JSON spells it, with its quotation marks: valid UTF-8 whatever the text holds. Half of
// a surrogate pair and a byte of no character (as U+DC00 and the byte) become \u escapes.
std::string JsonText(std::string_view text);

// One line of JSON, as far as our reports need it.
struct JsonValue {
  enum class Kind { Null, Flag, Number, Text, List, Object };
  Kind kind = Kind::Null;
  bool flag = false;
  std::string text;  // of a number: as it stands
  std::vector<JsonValue> items;
  std::map<std::string, JsonValue, std::less<>> fields;

  // The text of a field; empty when there is none.
  std::string_view Text(std::string_view field) const;
  const JsonValue* Find(std::string_view field) const;
};

// No value for what is no JSON, or nested deeper than our reports are.
std::optional<JsonValue> ParseJson(std::string_view line);

}  // namespace scourwell

// SPDX-License-Identifier: MIT
#include "console/json_text.h"

#include <algorithm>
#include <charconv>

#include "text/unicode.h"

namespace scourwell {
namespace {

constexpr int kDeepest = 8;
constexpr char32_t kJsonHalf = 0xDC00;

std::string Unit(char32_t unit) {
  static constexpr char kDigits[] = "0123456789abcdef";
  std::string text = "\\u";
  for (int shift = 12; shift >= 0; shift -= 4) text += kDigits[(unit >> shift) & 0xF];
  return text;
}

void AppendJson(char32_t code, std::string* text) {
  if (code >= kStrayByte) {
    *text += Unit(kJsonHalf + (code - kStrayByte));
  } else if (IsSurrogate(code) || code < ' ' || code == 0x7F) {
    *text += Unit(code);
  } else {
    if (code == '"' || code == '\\') *text += '\\';
    AppendCode(code, text);
  }
}

class Parser {
 public:
  explicit Parser(std::string_view text) : text_(text) {}

  std::optional<JsonValue> Whole() {
    JsonValue value;
    if (!Value(&value, 0)) return std::nullopt;
    SkipBlanks();
    if (at_ != text_.size()) return std::nullopt;
    return value;
  }

 private:
  void SkipBlanks() {
    while (at_ < text_.size() && std::string_view(" \t\r\n").find(text_[at_]) != text_.npos) ++at_;
  }
  bool Take(char c) {
    SkipBlanks();
    if (at_ == text_.size() || text_[at_] != c) return false;
    ++at_;
    return true;
  }
  bool TakeWord(std::string_view word) {
    if (!text_.substr(at_).starts_with(word)) return false;
    at_ += word.size();
    return true;
  }

  bool Value(JsonValue* value, int depth) {
    SkipBlanks();
    if (depth > kDeepest || at_ == text_.size()) return false;
    switch (text_[at_]) {
      case '"':
        value->kind = JsonValue::Kind::Text;
        return Text(&value->text);
      case '{':
        return Object(value, depth);
      case '[':
        return List(value, depth);
      default:
        return Plain(value);
    }
  }

  bool Plain(JsonValue* value) {
    if (TakeWord("null")) return true;
    value->flag = TakeWord("true");
    if (value->flag || TakeWord("false")) {
      value->kind = JsonValue::Kind::Flag;
      return true;
    }
    value->kind = JsonValue::Kind::Number;
    const std::size_t end = std::min(text_.find_first_not_of("+-.0123456789Ee", at_), text_.size());
    value->text = text_.substr(at_, end - at_);
    at_ = end;
    return !value->text.empty();
  }

  bool List(JsonValue* value, int depth) {
    value->kind = JsonValue::Kind::List;
    ++at_;
    if (Take(']')) return true;
    do {
      value->items.emplace_back();
      if (!Value(&value->items.back(), depth + 1)) return false;
    } while (Take(','));
    return Take(']');
  }

  bool Object(JsonValue* value, int depth) {
    value->kind = JsonValue::Kind::Object;
    ++at_;
    if (Take('}')) return true;
    do {
      std::string name;
      SkipBlanks();
      if (!Text(&name) || !Take(':')) return false;
      if (!Value(&value->fields[name], depth + 1)) return false;
    } while (Take(','));
    return Take('}');
  }

  bool Text(std::string* text) {
    if (at_ == text_.size() || text_[at_] != '"') return false;
    for (++at_; at_ < text_.size(); ++at_) {
      const char c = text_[at_];
      if (c == '"') return ++at_, true;
      if (c != '\\') {
        *text += c;
      } else if (!Escape(text)) {
        return false;
      }
    }
    return false;
  }

  // The "\" is at at_, which ends at the last character of the escape.
  bool Escape(std::string* text) {
    static constexpr std::string_view kNames = "bfnrt\"\\/";
    static constexpr std::string_view kMeanings = "\b\f\n\r\t\"\\/";
    if (++at_ == text_.size()) return false;
    if (const std::size_t known = kNames.find(text_[at_]); known != kNames.npos) {
      *text += kMeanings[known];
      return true;
    }
    char32_t code = 0;
    if (text_[at_] != 'u' || !Hex(&code)) return false;
    const bool high = code >= 0xD800 && code <= 0xDBFF;
    if (high && text_.substr(at_ + 1).starts_with("\\u")) {
      const std::size_t back = at_;
      char32_t low = 0;
      at_ += 2;
      if (Hex(&low) && low >= 0xDC00 && low <= 0xDFFF) {
        code = 0x10000 + ((code - 0xD800) << 10) + (low - 0xDC00);
      } else {
        at_ = back;
      }
    }
    AppendCode(code, text);
    return true;
  }

  // Four digits behind at_.
  bool Hex(char32_t* code) {
    const std::string_view digits = text_.substr(at_ + 1, 4);
    std::uint32_t number = 0;
    const auto read = std::from_chars(digits.data(), digits.data() + digits.size(), number, 16);
    if (digits.size() != 4 || read.ptr != digits.data() + 4) return false;
    *code = number;
    at_ += 4;
    return true;
  }

  std::string_view text_;
  std::size_t at_ = 0;
};

}  // namespace

std::string JsonText(std::string_view text) {
  std::string json = "\"";
  for (std::size_t at = 0; at < text.size();) AppendJson(NextCode(text, &at), &json);
  return json + "\"";
}

const JsonValue* JsonValue::Find(std::string_view field) const {
  const auto found = fields.find(field);
  return found == fields.end() ? nullptr : &found->second;
}

std::string_view JsonValue::Text(std::string_view field) const {
  const JsonValue* value = Find(field);
  return value ? std::string_view(value->text) : std::string_view();
}

std::optional<JsonValue> ParseJson(std::string_view line) { return Parser(line).Whole(); }

}  // namespace scourwell

// SPDX-License-Identifier: MIT
#include "machine/reg_script_reader.h"

#include <algorithm>
#include <optional>

#include "machine/reg_script.h"
#include "text/text.h"
#include "text/unicode.h"

namespace scourwell {
namespace {

constexpr std::string_view kUnicodeMark = "\xFF\xFE";
constexpr std::string_view kBlanks = " \t";
constexpr std::size_t kShownOfLine = 100;  // bytes
constexpr std::size_t kMostRefused = 100;  // lines that are listed

std::string_view Trimmed(std::string_view text) {
  const std::size_t begin = text.find_first_not_of(kBlanks);
  if (begin == text.npos) return {};
  return text.substr(begin, text.find_last_not_of(kBlanks) - begin + 1);
}

int HexDigit(char c) {
  if (c >= '0' && c <= '9') return c - '0';
  if (c >= 'a' && c <= 'f') return c - 'a' + 10;
  return c >= 'A' && c <= 'F' ? c - 'A' + 10 : -1;
}

// One to `most` digits and nothing else.
std::optional<std::uint32_t> HexNumber(std::string_view text, std::size_t most) {
  if (text.empty() || text.size() > most) return std::nullopt;
  std::uint32_t number = 0;
  for (const char c : text) {
    const int digit = HexDigit(c);
    if (digit < 0) return std::nullopt;
    number = number << 4 | static_cast<std::uint32_t>(digit);
  }
  return number;
}

bool TakePrefix(std::string_view* text, std::string_view prefix) {
  const std::size_t size = PrefixNoCase(*text, prefix);
  if (size == text->npos) return false;
  text->remove_prefix(size);
  return true;
}

// Takes a text between quotes off the front. The editor writes two escapes; another one could mean
// different things to different editors.
std::optional<std::string> TakeQuoted(std::string_view* line) {
  if (!line->starts_with('"')) return std::nullopt;
  std::string text;
  for (std::size_t i = 1; i < line->size(); ++i) {
    char c = (*line)[i];
    if (c == '"') {
      line->remove_prefix(i + 1);
      if (!CanStandInScript(text)) return std::nullopt;
      return text;
    }
    if (c == '\\') {
      if (++i == line->size()) return std::nullopt;
      c = (*line)[i];
      if (c != '\\' && c != '"') return std::nullopt;
    }
    text += c;
  }
  return std::nullopt;
}

std::string TextOfUtf16(std::string_view bytes) {
  std::u16string units;
  for (std::size_t i = 0; i + 1 < bytes.size(); i += 2) {
    units += static_cast<char16_t>(static_cast<unsigned char>(bytes[i]) |
                                   static_cast<unsigned char>(bytes[i + 1]) << 8);
  }
  return FromUtf16(units);
}

bool EndsHere(std::string_view line) {
  line = Trimmed(line);
  return line.empty() || line.front() == ';';
}

class Parser {
 public:
  Parser(std::string_view text, bool unicode, CodePages& code_pages, ScriptContent* content)
      : rest_(text), unicode_(unicode), code_pages_(code_pages), content_(*content) {}

  bool Header() { return Trimmed(NextLine()) == (unicode_ ? kUnicodeHeader : kAnsiHeader); }

  void Read() {
    while (!rest_.empty()) {
      const std::string_view line = Trimmed(NextLine());
      if (line.empty() || line.front() == ';') continue;
      const bool understood = line.front() == '[' ? KeyLine(line) : ValueLine(line);
      if (understood || content_.refused.size() >= kMostRefused) continue;
      content_.refused.emplace_back(WholeCharacters(line, kShownOfLine));
    }
  }

 private:
  std::string_view NextLine() {
    const std::size_t end = std::min(rest_.find_first_of("\r\n"), rest_.size());
    const std::string_view line = rest_.substr(0, end);
    rest_.remove_prefix(end);
    if (rest_.starts_with("\r\n")) rest_.remove_prefix(1);
    if (!rest_.empty()) rest_.remove_prefix(1);
    return line;
  }

  // The last bracket ends the name: one within it belongs to it.
  bool KeyLine(std::string_view line) {
    in_key_ = false;
    const std::size_t end = line.rfind(']');
    if (end == line.npos || !EndsHere(line.substr(end + 1))) return false;
    std::string_view path = line.substr(1, end - 1);
    const bool erased = path.starts_with('-');
    if (erased) path.remove_prefix(1);
    if (path.empty() || !CanStandInScript(path)) return false;
    content_.keys.push_back({std::string(path), erased, {}});
    in_key_ = true;
    return true;
  }

  bool ValueLine(std::string_view line) {
    ScriptValue value;
    const bool right = TakeName(&line, &value.name) && TakeData(line, &value);
    if (!right || !in_key_ || content_.keys.back().erased) return false;
    content_.keys.back().values.push_back(std::move(value));
    return true;
  }

  static bool TakeName(std::string_view* line, std::string* name) {
    if (line->starts_with('@')) {
      line->remove_prefix(1);
    } else {
      auto quoted = TakeQuoted(line);
      if (!quoted) return false;
      *name = std::move(*quoted);
    }
    *line = Trimmed(*line);
    if (!line->starts_with('=')) return false;
    line->remove_prefix(1);
    *line = Trimmed(*line);
    return true;
  }

  bool TakeData(std::string_view text, ScriptValue* value) {
    value->erased = text.starts_with('-');
    if (value->erased) return EndsHere(text.substr(1));
    if (auto quoted = TakeQuoted(&text)) {
      value->value = {kRegText, std::move(*quoted) + '\0'};
      return EndsHere(text);
    }
    if (TakePrefix(&text, "dword:")) return TakeDword(text, &value->value);
    return TakePrefix(&text, "hex") && TakeHex(text, &value->value);
  }

  static bool TakeDword(std::string_view text, RegValue* value) {
    text = Trimmed(text.substr(0, text.find(';')));
    const auto number = HexNumber(text, 8);
    if (!number) return false;
    value->type = kRegDword;
    for (unsigned i = 0; i < 32; i += 8) value->data += static_cast<char>(*number >> i & 0xFF);
    return true;
  }

  // "(2):" or ":", then bytes that may go on in the next lines.
  bool TakeHex(std::string_view text, RegValue* value) {
    value->type = kRegBinary;
    bool right = true;
    if (text.starts_with('(')) {
      const std::size_t end = text.find(')');
      const auto type = HexNumber(text.substr(1, end == text.npos ? 0 : end - 1), 8);
      right = type.has_value();
      value->type = type.value_or(0);
      text.remove_prefix(right ? end + 1 : 0);
    }
    right = right && TakePrefix(&text, ":");
    std::string bytes;
    bool more = true;
    // What goes on is skipped also where it is wrong, so that its rest is no line of its own.
    for (; more; text = more ? NextLine() : text) {
      text = Trimmed(text.substr(0, text.find(';')));
      more = text.ends_with('\\');
      if (more) text.remove_suffix(1);
      right = right && TakeBytes(text, &bytes);
    }
    return right && TakeText(std::move(bytes), value);
  }

  // A comma may follow the last byte.
  static bool TakeBytes(std::string_view text, std::string* bytes) {
    while (!(text = Trimmed(text)).empty()) {
      const std::size_t comma = std::min(text.find(','), text.size());
      const auto byte = HexNumber(Trimmed(text.substr(0, comma)), 2);
      if (!byte) return false;
      *bytes += static_cast<char>(*byte);
      text.remove_prefix(std::min(comma + 1, text.size()));
    }
    return true;
  }

  // Texts stand in the letters of the script.
  bool TakeText(std::string bytes, RegValue* value) {
    if (!IsTextType(value->type)) {
      value->data = std::move(bytes);
      return true;
    }
    if (!unicode_) {
      return code_pages_.Decode(code_pages_.System(), bytes, &value->data).ok();
    }
    value->data = TextOfUtf16(bytes);
    if (bytes.size() % 2 != 0) value->half_character = bytes.back();
    return true;
  }

  std::string_view rest_;
  bool unicode_;
  CodePages& code_pages_;
  ScriptContent& content_;
  bool in_key_ = false;  // a key line that was understood stands above
};

}  // namespace

Outcome ReadRegScript(std::string_view bytes, CodePages& code_pages, ScriptContent* content) {
  const bool unicode = bytes.starts_with(kUnicodeMark);
  std::string text;
  if (unicode) {
    text = TextOfUtf16(bytes.substr(kUnicodeMark.size()));
  } else if (Outcome read = code_pages.Decode(code_pages.System(), bytes, &text); !read.ok()) {
    return read;
  }
  Parser parser(text, unicode, code_pages, content);
  if (!parser.Header()) return Outcome::Failed(kTypeMismatch, "It is no registry script");
  parser.Read();
  return {};
}

}  // namespace scourwell

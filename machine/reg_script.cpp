// SPDX-License-Identifier: MIT
#include "machine/reg_script.h"

#include <algorithm>

#include "text/text.h"
#include "text/unicode.h"

namespace scourwell {
namespace {

constexpr std::string_view kLineEnd = "\r\n";
constexpr char kMark[] = "; Scourwell wrote this for the registry editor and erases it\r\n";
constexpr std::size_t kLineWidth = 78;
constexpr char kEscape = '\\';
constexpr char kDigits[] = "0123456789abcdef";

bool HasControl(std::string_view text) {
  return std::ranges::any_of(text, [](char c) { return static_cast<unsigned char>(c) < 32; });
}

std::string HeaderLine(std::string_view header) { return std::string(header) += kLineEnd; }

// The editor stores a quoted text with one NUL behind it.
bool IsPlainText(const RegValue& value) {
  return value.type == kRegText && !value.half_character && value.data.ends_with('\0') &&
         !HasControl(std::string_view(value.data).substr(0, value.data.size() - 1));
}

std::string HexTag(std::uint32_t type) {
  if (type == kRegBinary) return "hex:";
  std::string digits;
  for (; type != 0 || digits.empty(); type >>= 4) digits.insert(0, 1, kDigits[type & 15]);
  return "hex(" + digits + "):";
}

// Lines are broken behind a comma, with "\", and go on after two blanks.
std::string HexBytes(std::size_t column, std::string_view data) {
  std::string text;
  for (std::size_t i = 0; i < data.size(); ++i) {
    const auto byte = static_cast<unsigned char>(data[i]);
    text += kDigits[byte >> 4];
    text += kDigits[byte & 15];
    column += 3;
    if (i + 1 == data.size()) break;
    text += ',';
    if (column + 4 <= kLineWidth) continue;
    text += "\\\r\n  ";
    column = 2;
  }
  return text;
}

std::string HexLine(std::string_view start, std::uint32_t type, std::string_view bytes) {
  std::string line(start);
  line += HexTag(type);
  return line + HexBytes(line.size(), bytes) + "\r\n";
}

std::string DwordText(std::string_view data) {
  std::string text = "dword:";
  for (std::size_t i = data.size(); i-- > 0;) {
    const auto byte = static_cast<unsigned char>(data[i]);
    text += kDigits[byte >> 4];
    text += kDigits[byte & 15];
  }
  return text + "\r\n";
}

std::string Utf16Bytes(std::string_view text) {
  std::string bytes;
  for (const char16_t unit : ToUtf16(text)) {
    bytes += static_cast<char>(unit & 0xFF);
    bytes += static_cast<char>(unit >> 8);
  }
  return bytes;
}

}  // namespace

ScriptReader ReaderOf(const COpSysInfo& os) {
  return os.IsWin2K() ? ScriptReader::Unicode : ScriptReader::Ansi;
}

bool CanStandInScript(std::string_view name) { return !HasControl(name); }

std::string QuotedForScript(std::string_view text) {
  std::string quoted = "\"";
  for (const char c : text) {
    if (c == kEscape || c == '"') quoted += kEscape;
    quoted += c;
  }
  return quoted + "\"";
}

std::string ValueNameForScript(std::string_view name) {
  return name.empty() ? "@" : QuotedForScript(name);
}

RegScript::RegScript(CodePages& code_pages, ScriptReader reader)
    : code_pages_(code_pages),
      reader_(reader),
      ansi_(HeaderLine(kAnsiHeader)),
      unicode_(HeaderLine(kUnicodeHeader)) {}

bool RegScript::CanHold(std::string_view text) const {
  return reader_ == ScriptReader::Unicode || IsAscii(text) || code_pages_.Encode(text).has_value();
}

// A text that was looked at already.
bool RegScript::Append(std::string_view line) {
  empty_ = false;
  only_ascii_ = only_ascii_ && IsAscii(line);
  if (reader_ == ScriptReader::Unicode) unicode_ += line;
  if (reader_ == ScriptReader::Ansi || only_ascii_) {
    ansi_ += IsAscii(line) ? std::string(line) : code_pages_.Encode(line).value_or("");
  }
  return true;
}

bool RegScript::AddKey(std::string_view full_path) {
  if (HasControl(full_path) || !CanHold(full_path)) return false;
  return Append("\r\n[" + std::string(full_path) + "]\r\n");
}

bool RegScript::DeleteKey(std::string_view full_path) {
  if (HasControl(full_path) || !CanHold(full_path)) return false;
  return Append("\r\n[-" + std::string(full_path) + "]\r\n\r\n");
}

bool RegScript::DeleteValue(std::string_view full_path, std::string_view name) {
  for (const std::string_view text : {full_path, name}) {
    if (HasControl(text) || !CanHold(text)) return false;
  }
  return Append("[" + std::string(full_path) + "]\r\n" + ValueNameForScript(name) + "=-\r\n");
}

// The line keeps the value's own type: quoted text where that brings back the same bytes, "dword:"
// for four bytes of type 4, else "hex(type):" in lines of at most 78 characters.
bool RegScript::AddValue(std::string_view name, const RegValue& value) {
  if (HasControl(name) || !CanHold(name)) return false;
  if (IsTextType(value.type) && !CanHold(value.data)) return false;
  if (value.half_character && reader_ == ScriptReader::Ansi) return false;
  const std::string start = ValueNameForScript(name) + "=";
  if (IsPlainText(value)) return Append(start + QuotedForScript(TrimNull(value.data)) + "\r\n");
  if (value.type == kRegDword && value.data.size() == 4) {
    return Append(start + DwordText(value.data));
  }
  if (!IsTextType(value.type)) return Append(HexLine(start, value.type, value.data));
  return AppendBoth(start, value);
}

// Each form has the text's bytes in letters of its own.
bool RegScript::AppendBoth(std::string_view start, const RegValue& value) {
  empty_ = false;
  only_ascii_ = only_ascii_ && IsAscii(start) && IsAscii(value.data) && !value.half_character;
  if (reader_ == ScriptReader::Unicode) {
    std::string bytes = Utf16Bytes(value.data);
    if (value.half_character) bytes += *value.half_character;
    unicode_ += HexLine(start, value.type, bytes);
  }
  if (reader_ == ScriptReader::Ansi || only_ascii_) {
    const std::string line =
        HexLine(start, value.type, code_pages_.Encode(value.data).value_or(""));
    ansi_ += IsAscii(line) ? line : code_pages_.Encode(line).value_or("");
  }
  return true;
}

std::string RegScript::Bytes(bool marked) const {
  const bool ansi = reader_ == ScriptReader::Ansi || only_ascii_;
  std::string text = ansi ? ansi_ : unicode_;
  if (marked) text.insert(HeaderLine(ansi ? kAnsiHeader : kUnicodeHeader).size(), kMark);
  return ansi ? text : "\xFF\xFE" + Utf16Bytes(text);
}

bool BearsScriptMark(std::string_view beginning) {
  return beginning.starts_with(HeaderLine(kAnsiHeader) + kMark) ||
         beginning.starts_with("\xFF\xFE" + Utf16Bytes(HeaderLine(kUnicodeHeader) + kMark));
}

}  // namespace scourwell

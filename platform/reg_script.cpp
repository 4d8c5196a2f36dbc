#include "platform/reg_script.h"

#include <algorithm>

#include "platform/text.h"

namespace scourwell {
namespace {

constexpr std::size_t kLineWidth = 78;
constexpr char kDigits[] = "0123456789abcdef";

bool IsControl(char c) { return static_cast<unsigned char>(c) < 32; }

bool HasControl(std::string_view text) { return std::any_of(text.begin(), text.end(), IsControl); }

// The editor stores a quoted text with one NUL behind it.
bool IsPlainText(const RegValue& value) {
  return value.type == kRegText && !value.data.empty() && value.data.back() == '\0' &&
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

}  // namespace

bool CanStandInScript(std::string_view name) { return !HasControl(name); }

std::string QuotedForScript(std::string_view text) {
  std::string quoted = "\"";
  for (const char c : text) {
    if (c == '\\' || c == '"') quoted += '\\';
    quoted += c;
  }
  return quoted + "\"";
}

std::string ValueNameForScript(std::string_view name) {
  return name.empty() ? "@" : QuotedForScript(name);
}

std::string ValueLineForScript(std::string_view name, const RegValue& value) {
  std::string line = ValueNameForScript(name) + "=";
  if (IsPlainText(value)) {
    return line + QuotedForScript(TrimNull(value.data)) + "\r\n";
  }
  if (value.type == kRegDword && value.data.size() == 4) {
    std::uint32_t number = 0;
    for (std::size_t i = 4; i-- > 0;)
      number = number << 8 | static_cast<unsigned char>(value.data[i]);
    std::string digits = Hex(number, 8);
    std::transform(digits.begin(), digits.end(), digits.begin(),
                   [](char c) { return c >= 'A' && c <= 'F' ? static_cast<char>(c + 32) : c; });
    return line + "dword:" + digits + "\r\n";
  }
  line += HexTag(value.type);
  return line + HexBytes(line.size(), value.data) + "\r\n";
}

}  // namespace scourwell

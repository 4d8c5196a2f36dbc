// SPDX-License-Identifier: MIT
#include "platform/win/native_text.h"

#include <windows.h>

#include "text/unicode.h"

namespace scourwell {
namespace {

// Bytes that are no characters of the code page stand as lone halves of a surrogate pair inside the
// program, so that data of Windows 95, 98 and Me goes there and back unchanged.
constexpr char16_t kStrayHalf = 0xDC00;
bool IsStray(wchar_t unit) { return unit >= kStrayHalf + 0x80 && unit <= kStrayHalf + 0xFF; }

std::wstring Decode(std::string_view bytes) {
  const int size = static_cast<int>(bytes.size());
  const int needed = MultiByteToWideChar(CP_ACP, 0, bytes.data(), size, nullptr, 0);
  if (needed <= 0) return {};
  std::wstring wide(static_cast<std::size_t>(needed), L'\0');
  MultiByteToWideChar(CP_ACP, 0, bytes.data(), size, wide.data(), needed);
  return wide;
}

std::string Encode(std::wstring_view wide) {
  const int size = static_cast<int>(wide.size());
  const int needed =
      WideCharToMultiByte(CP_ACP, 0, wide.data(), size, nullptr, 0, nullptr, nullptr);
  if (needed <= 0) return {};
  std::string bytes(static_cast<std::size_t>(needed), '\0');
  WideCharToMultiByte(CP_ACP, 0, wide.data(), size, bytes.data(), needed, nullptr, nullptr);
  return bytes;
}

// Bytes of the character at the beginning.
std::size_t CharacterSize(std::string_view bytes) {
  if (GetACP() == CP_UTF8) {
    std::size_t size = 0;
    NextCode(bytes, &size);
    return size;
  }
  return bytes.size() > 1 && IsDBCSLeadByte(static_cast<BYTE>(bytes[0])) ? 2 : 1;
}

std::size_t UnitsOfCharacter(std::wstring_view wide) {
  const bool pair = wide.size() > 1 && (wide[0] & 0xFC00) == 0xD800 && (wide[1] & 0xFC00) == 0xDC00;
  return pair ? 2 : 1;
}

// Character by character, since some of them are none.
std::wstring DecodeWithStrays(std::string_view bytes) {
  std::wstring wide;
  while (!bytes.empty()) {
    const std::string_view character = bytes.substr(0, CharacterSize(bytes));
    const std::wstring decoded = Decode(character);
    if (Encode(decoded) == character) {
      wide += decoded;
      bytes.remove_prefix(character.size());
    } else {
      wide += static_cast<wchar_t>(kStrayHalf + static_cast<unsigned char>(bytes.front()));
      bytes.remove_prefix(1);
    }
  }
  return wide;
}

std::optional<std::string> EncodeWithStrays(std::wstring_view wide) {
  std::string bytes;
  for (; !wide.empty(); wide.remove_prefix(UnitsOfCharacter(wide))) {
    if (IsStray(wide.front())) {
      bytes += static_cast<char>(wide.front() - kStrayHalf);
      continue;
    }
    const std::wstring_view units = wide.substr(0, UnitsOfCharacter(wide));
    const std::string character = Encode(units);
    if (Decode(character) != units) return std::nullopt;
    bytes += character;
  }
  return bytes;
}

}  // namespace

std::wstring Wide(std::string_view text) {
  if (IsAscii(text)) return {text.begin(), text.end()};
  const std::u16string units = ToUtf16(text);
  return {units.begin(), units.end()};
}

std::string FromWide(std::wstring_view wide) {
  return FromUtf16({reinterpret_cast<const char16_t*>(wide.data()), wide.size()});
}

std::string Narrow(std::string_view text) {
  return IsAscii(text) ? std::string(text) : Encode(Wide(text));
}

std::optional<std::string> ExactNarrow(std::string_view text) {
  if (IsAscii(text)) return std::string(text);
  const std::wstring wide = Wide(text);
  std::string bytes = Encode(wide);
  if (Decode(bytes) == wide) return bytes;
  // The NT family has names with such halves that stand for no byte here.
  std::optional<std::string> with_strays = EncodeWithStrays(wide);
  if (with_strays && FromNarrow(*with_strays) != text) return std::nullopt;
  return with_strays;
}

std::string FromNarrow(std::string_view narrow) {
  if (IsAscii(narrow)) return std::string(narrow);
  const std::wstring wide = Decode(narrow);
  return FromWide(Encode(wide) == narrow ? wide : DecodeWithStrays(narrow));
}

}  // namespace scourwell

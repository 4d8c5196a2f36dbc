// SPDX-License-Identifier: MIT
#include "offline/disk_name.h"

#include <algorithm>

#include "text/unicode.h"

namespace scourwell {
namespace {

constexpr char32_t kByte = 0xDC00;
constexpr char32_t kLastByte = 0xDCFF;
constexpr std::string_view kImpossible = "\\/:*?\"<>|";

bool IsPossible(char32_t code) {
  if (IsSurrogate(code)) return false;
  return code >= 0x80 ||
         (code >= 0x20 && kImpossible.find(static_cast<char>(code)) == std::string_view::npos);
}

bool IsPlain(std::string_view bytes) {
  return std::ranges::all_of(
      bytes, [](char c) { return static_cast<unsigned char>(c) < 0x80 && IsPossible(c); });
}

}  // namespace

std::string FromDiskName(std::string_view bytes) {
  if (IsPlain(bytes)) return std::string(bytes);
  std::string name;
  for (std::size_t at = 0; at < bytes.size();) {
    const std::size_t first = at;
    const char32_t code = NextCode(bytes, &at);
    if (code < kStrayByte && IsPossible(code)) {
      AppendCode(code, &name);
      continue;
    }
    for (std::size_t i = first; i < at; ++i) {
      AppendCode(kByte + static_cast<unsigned char>(bytes[i]), &name);
    }
  }
  return name;
}

std::optional<std::string> ToDiskName(std::string_view name) {
  if (name.empty() || name == "." || name == "..") return std::nullopt;
  if (IsPlain(name)) return std::string(name);
  std::string bytes;
  for (std::size_t at = 0; at < name.size();) {
    const char32_t code = NextCode(name, &at);
    if (code >= kByte && code <= kLastByte) {
      bytes += static_cast<char>(code - kByte);
    } else {
      AppendCode(code, &bytes);
    }
  }
  if (bytes.find('/') != bytes.npos || bytes.find('\0') != bytes.npos) return std::nullopt;
  if (FromDiskName(bytes) != name) return std::nullopt;
  return bytes;
}

}  // namespace scourwell

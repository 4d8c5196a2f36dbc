// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace scourwell {

// Numbers and texts in files of Windows machines, lowest byte first. What lies behind the end of
// the bytes reads as 0.
inline std::uint32_t NumberAt(std::string_view bytes, std::size_t at, std::size_t size) {
  std::uint32_t number = 0;
  for (std::size_t i = size; i-- > 0;) {
    const bool inside = at < bytes.size() && i < bytes.size() - at;
    number = number << 8 | (inside ? static_cast<unsigned char>(bytes[at + i]) : 0u);
  }
  return number;
}
inline std::uint16_t WordAt(std::string_view bytes, std::size_t at) {
  return static_cast<std::uint16_t>(NumberAt(bytes, at, 2));
}
inline std::uint32_t DwordAt(std::string_view bytes, std::size_t at) {
  return NumberAt(bytes, at, 4);
}

// UTF-16 as it is stored.
inline std::u16string UnitsOf(std::string_view bytes) {
  std::u16string units(bytes.size() / 2, u'\0');
  for (std::size_t i = 0; i < units.size(); ++i) {
    units[i] = static_cast<char16_t>(WordAt(bytes, 2 * i));
  }
  return units;
}
inline std::string BytesOf(std::u16string_view units) {
  std::string bytes;
  for (const char16_t unit : units) {
    bytes += static_cast<char>(unit & 0xFF);
    bytes += static_cast<char>(unit >> 8);
  }
  return bytes;
}

}  // namespace scourwell

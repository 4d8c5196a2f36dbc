// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

namespace scourwell {

inline constexpr char kShortRule[] = "====================";
inline constexpr char kLongRule[] = "==========================================================";

// Collects lines; each one written ends with CR LF, whatever its text holds.
class Lines {
 public:
  Lines& Add(std::string_view line) {
    text_.append(line).append("\r\n");
    return *this;
  }
  const std::string& text() const { return text_; }

 private:
  std::string text_;
};

}  // namespace scourwell

// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace scourwell::test {

// Turns the texts of one character set, such as "CP1251", into UTF-8.
class Charset {
 public:
  explicit Charset(const std::string& name);
  ~Charset();
  Charset(const Charset&) = delete;
  Charset& operator=(const Charset&) = delete;

  bool known() const;
  // No value where the text holds bytes that are no letters of the set.
  std::optional<std::string> Decode(std::string_view text) const;

 private:
  void* turn_;
};

// Letters of two bytes and more, as an editor leaves them that knows no code pages.
bool LooksLikeUtf8(std::string_view line);

// The room that a UTF-8 caption takes, in Latin letters: a Japanese sign takes two, an "&" none.
std::size_t Columns(std::string_view caption);

}  // namespace scourwell::test

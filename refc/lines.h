// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string_view>

namespace scourwell::refc {

// The lines of a text with their numbers, from 1. CR, LF and CR LF end a line. The text of a line
// may be changed once it was read; its length may not.
class Lines {
 public:
  explicit Lines(std::string_view text) : text_(text) {}

  // False at the end.
  bool Next();
  std::string_view text() const { return line_; }
  std::size_t begin() const { return begin_; }
  std::uint32_t number() const { return number_; }

 private:
  std::string_view text_;
  std::string_view line_;
  std::size_t begin_ = 0;
  std::size_t next_ = 0;
  std::uint32_t number_ = 0;
};

}  // namespace scourwell::refc

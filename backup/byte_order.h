// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace scourwell {

// Appends the low `bytes` bytes of a number, the lowest first.
inline void PutNumber(std::string* to, std::uint64_t value, unsigned bytes) {
  for (; bytes > 0; --bytes, value >>= 8) *to += static_cast<char>(value & 0xFF);
}

// Takes numbers and texts off the front of a block. What the block does not hold is 0 or empty,
// and the reader has failed from then on.
class NumberReader {
 public:
  explicit NumberReader(std::string_view bytes) : rest_(bytes) {}

  std::string_view TakeText(std::uint64_t size) {
    if (size > rest_.size()) failed_ = true;
    if (failed_) return {};
    const std::string_view text = rest_.substr(0, static_cast<std::size_t>(size));
    rest_.remove_prefix(text.size());
    return text;
  }
  std::uint64_t Take(unsigned bytes) {
    const std::string_view text = TakeText(bytes);
    std::uint64_t value = 0;
    for (std::size_t i = text.size(); i > 0; --i) {
      value = value << 8 | static_cast<unsigned char>(text[i - 1]);
    }
    return value;
  }
  std::uint32_t Take32() { return static_cast<std::uint32_t>(Take(4)); }

  bool failed() const { return failed_; }
  std::size_t left() const { return rest_.size(); }

 private:
  std::string_view rest_;
  bool failed_ = false;
};

}  // namespace scourwell

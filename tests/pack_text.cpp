// SPDX-License-Identifier: MIT
#include "tests/pack_text.h"

#include <iconv.h>

#include <algorithm>

namespace scourwell::test {
namespace {

const iconv_t kUnknown = reinterpret_cast<iconv_t>(-1);
constexpr std::size_t kLongestLetter = 4;  // bytes in UTF-8

}  // namespace

Charset::Charset(const std::string& name) : turn_(iconv_open("UTF-8", name.c_str())) {}

Charset::~Charset() {
  if (known()) iconv_close(turn_);
}

bool Charset::known() const { return turn_ != kUnknown; }

std::optional<std::string> Charset::Decode(std::string_view text) const {
  std::string in(text);
  std::string out(in.size() * kLongestLetter, '\0');
  char* from = in.data();
  char* to = out.data();
  std::size_t left = in.size();
  std::size_t room = out.size();
  if (!known() || iconv(turn_, &from, &left, &to, &room) == static_cast<std::size_t>(-1)) {
    return {};
  }
  out.resize(out.size() - room);
  return out;
}

bool LooksLikeUtf8(std::string_view line) {
  const bool plain = std::none_of(line.begin(), line.end(), [](char c) { return c & 0x80; });
  return !plain && Charset("UTF-8").Decode(line);
}

std::size_t Columns(std::string_view caption) {
  std::size_t columns = 0;
  for (const char c : caption) {
    const auto byte = static_cast<unsigned char>(c);
    const bool begins = (byte & 0xC0) != 0x80;
    if (begins && c != '&') columns += byte >= 0xE3 ? 2 : 1;
  }
  return columns;
}

}  // namespace scourwell::test

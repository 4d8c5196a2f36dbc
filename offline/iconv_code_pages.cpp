// SPDX-License-Identifier: MIT
#include "offline/iconv_code_pages.h"

#include <iconv.h>

#include <array>

#include "text/unicode.h"

namespace scourwell {
namespace {

constexpr char32_t kByte = 0xDC00;
constexpr unsigned kUtf8 = 65001;

std::string NameOf(unsigned code_page) {
  return code_page == kUtf8 ? "UTF-8" : "CP" + std::to_string(code_page);
}

class Converter {
 public:
  Converter(const std::string& to, const std::string& from)
      : handle_(iconv_open(to.c_str(), from.c_str())) {}
  Converter(const Converter&) = delete;
  Converter& operator=(const Converter&) = delete;
  ~Converter() {
    if (known()) iconv_close(handle_);
  }

  bool known() const { return handle_ != reinterpret_cast<iconv_t>(-1); }
  // Appends what the bytes are; false, and nothing appended, when they are no whole characters.
  bool Convert(std::string_view bytes, std::string* text) {
    std::array<char, 16> out;
    char* from = const_cast<char*>(bytes.data());
    std::size_t left = bytes.size();
    char* to = out.data();
    std::size_t room = out.size();
    iconv(handle_, nullptr, nullptr, nullptr, nullptr);
    // A letter that is only similar counts as none.
    if (iconv(handle_, &from, &left, &to, &room) != 0 || left != 0) return false;
    text->append(out.data(), out.size() - room);
    return true;
  }

 private:
  iconv_t handle_;
};

}  // namespace

Outcome IconvCodePages::Decode(unsigned code_page, std::string_view bytes, std::string* text) {
  if (IsAscii(bytes)) {
    if (!Converter("UTF-8", NameOf(code_page)).known()) return Outcome::Failed(kInvalidCall);
    *text = bytes;
    return {};
  }
  Converter converter("UTF-8", NameOf(code_page));
  if (!converter.known()) return Outcome::Failed(kInvalidCall);
  constexpr std::size_t kLongest = 4;  // bytes of a character
  std::string result;
  for (std::size_t at = 0; at < bytes.size();) {
    std::size_t size = 1;
    while (size <= kLongest && at + size <= bytes.size() &&
           !converter.Convert(bytes.substr(at, size), &result)) {
      ++size;
    }
    if (size > kLongest || at + size > bytes.size()) {
      AppendCode(kByte + static_cast<unsigned char>(bytes[at]), &result);
      size = 1;
    }
    at += size;
  }
  *text = std::move(result);
  return {};
}

std::optional<std::string> IconvCodePages::Encode(std::string_view text) {
  if (IsAscii(text)) return std::string(text);
  Converter converter(NameOf(system_), "UTF-8");
  if (!converter.known()) return std::nullopt;
  std::string bytes;
  for (std::size_t at = 0; at < text.size();) {
    const std::size_t first = at;
    const char32_t code = NextCode(text, &at);
    if (code >= kByte + 0x80 && code <= kByte + 0xFF) {
      bytes += static_cast<char>(code - kByte);
    } else if (code >= kStrayByte || IsSurrogate(code) ||
               !converter.Convert(text.substr(first, at - first), &bytes)) {
      return std::nullopt;
    }
  }
  return bytes;
}

}  // namespace scourwell

// SPDX-License-Identifier: MIT
#include "refc/escape.h"

#include "refc/code_page.h"
#include "text/text.h"

namespace scourwell::refc {
namespace {

constexpr unsigned char kShift = 12;

int HexDigit(char c) {
  if (c >= '0' && c <= '9') return c - '0';
  if (c >= 'A' && c <= 'F') return c - 'A' + 10;
  return c >= 'a' && c <= 'f' ? c - 'a' + 10 : -1;
}

// The byte that `text` names behind `mark`, "{x" or "{raw"; -1 when it names none.
int NamedByte(std::string_view text, std::string_view mark) {
  if (!text.starts_with(mark) || text.size() < mark.size() + 3) return -1;
  const int high = HexDigit(text[mark.size()]);
  const int low = HexDigit(text[mark.size() + 1]);
  if (high < 0 || low < 0 || text[mark.size() + 2] != '}') return -1;
  return high * 16 + low;
}

bool LooksEscaped(std::string_view text) {
  return NamedByte(text, "{x") >= 0 || NamedByte(text, "{raw") >= 0;
}

// `rest` begins with the character itself, in plain.
void AppendEscaped(unsigned char code, bool at_an_end, std::string_view rest, std::string* text) {
  const bool odd = code < 32 || code == 127 || (code == ' ' && at_an_end) || LooksEscaped(rest);
  if (!odd && AppendAsUtf8(code, text)) return;
  *text += "{x" + Hex(code, 2) + "}";
}

}  // namespace

std::string Escaped(std::string_view text) {
  std::string result;
  for (std::size_t i = 0; i < text.size(); ++i) {
    AppendEscaped(static_cast<unsigned char>(text[i]), i == 0 || i + 1 == text.size(),
                  text.substr(i), &result);
  }
  return result;
}

void WriteDescrambled(std::string_view scrambled,
                      const std::function<void(std::string_view)>& put) {
  constexpr std::size_t kPiece = 4096;
  std::string piece;
  for (std::size_t i = 0; i < scrambled.size(); ++i) {
    const auto code = static_cast<unsigned char>(scrambled[i]);
    // As far as an escape could reach.
    char plain[7];
    const std::string_view reach = scrambled.substr(i, sizeof plain);
    for (std::size_t at = 0; at < reach.size(); ++at) {
      plain[at] = static_cast<char>(static_cast<unsigned char>(reach[at]) - kShift);
    }
    if (code < kShift) {
      piece += "{raw" + Hex(code, 2) + "}";
    } else {
      AppendEscaped(static_cast<unsigned char>(plain[0]), i == 0 || i + 1 == scrambled.size(),
                    {plain, reach.size()}, &piece);
    }
    if (piece.size() < kPiece) continue;
    put(piece);
    piece.clear();
  }
  put(piece);
}

std::size_t Unescape(char* text, std::size_t size) {
  std::size_t written = 0;
  for (std::size_t at = 0; at < size;) {
    const int byte = text[at] == '{' ? NamedByte({text + at, size - at}, "{x") : -1;
    text[written++] = byte < 0 ? text[at] : static_cast<char>(byte);
    at += byte < 0 ? 1 : 5;
  }
  return written;
}

bool HoldsRawByte(std::string_view text) {
  for (std::size_t at = text.find("{raw"); at != text.npos; at = text.find("{raw", at + 1)) {
    if (NamedByte(text.substr(at), "{raw") >= 0) return true;
  }
  return false;
}

}  // namespace scourwell::refc

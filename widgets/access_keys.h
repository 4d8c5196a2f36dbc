// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

namespace scourwell {

// The letter at `at` of a UTF-8 text, upper-cased, when Alt and a key can name it: A to Z, 0 to 9,
// a Russian one. 0 for everything else, and for the three letters that no Russian word begins with.
inline char32_t KeyLetter(std::string_view text, std::size_t at) {
  const auto byte = [&](std::size_t i) {
    return i < text.size() ? static_cast<unsigned char>(text[i]) : 0u;
  };
  const unsigned first = byte(at);
  const unsigned second = byte(at + 1);
  if ((first >= 'A' && first <= 'Z') || (first >= '0' && first <= '9')) return first;
  if (first >= 'a' && first <= 'z') return first - 'a' + 'A';
  if ((first != 0xD0 && first != 0xD1) || second >> 6 != 2) return 0;
  char32_t letter = (first & 0x1F) << 6 | (second & 0x3F);
  if (letter >= U'\u0430' && letter <= U'\u044F') letter -= 0x20;
  const bool silent = letter >= U'\u042A' && letter <= U'\u042C';
  return letter >= U'\u0410' && letter <= U'\u042F' && !silent ? letter : 0;
}

// Whether a UTF-8 text holds Japanese or other signs that no key can name.
inline bool HasWideSigns(std::string_view text) {
  const auto continues = [&](std::size_t i) { return (text[i] & 0xC0) == 0x80; };
  for (std::size_t i = 0; i + 2 < text.size(); ++i) {
    const auto first = static_cast<unsigned char>(text[i]);
    if (first >= 0xE3 && first <= 0xEF && continues(i + 1) && continues(i + 2)) return true;
  }
  return false;
}

// Gives captions their access keys, in whatever language they come: each gets an "&" before its
// first letter that is still free, one in wide signs a free Latin letter behind it: "(&A)". A
// caption that has a key already keeps it.
class AccessKeys {
 public:
  // `taken`: captions whose keys belong to others, such as the titles of the menu bar.
  explicit AccessKeys(std::initializer_list<std::string> taken = {}) {
    for (const std::string& caption : taken) Take(caption);
  }

  std::string Add(const std::string& caption) {
    if (Take(caption)) return caption;
    if (HasWideSigns(caption)) return AddBehind(caption);
    for (std::size_t i = 0; i < caption.size(); ++i) {
      const char32_t key = KeyLetter(caption, i);
      if (key < 'A' || !IsFree(key)) continue;
      used_ += key;
      return caption.substr(0, i) + "&" + caption.substr(i);
    }
    return caption;
  }

 private:
  bool IsFree(char32_t key) const { return used_.find(key) == used_.npos; }

  // True when the caption names its key itself.
  bool Take(std::string_view caption) {
    const std::size_t at = caption.find('&');
    if (at == caption.npos || at + 1 >= caption.size() || caption[at + 1] == '&') return false;
    if (const char32_t key = KeyLetter(caption, at + 1)) used_ += key;
    return true;
  }

  std::string AddBehind(std::string caption) {
    char key = 'A';
    while (key <= 'Z' && !IsFree(static_cast<char32_t>(key))) ++key;
    if (key > 'Z') return caption;
    used_ += static_cast<char32_t>(key);
    const std::size_t end = caption.find_last_not_of(".:");
    return caption.insert(end + 1, std::string("(&") + key + ")");
  }

  std::u32string used_;
};

}  // namespace scourwell

// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/versions.h"

namespace scourwell::test {

// The block of a version resource in the making, in UTF-16 or in the ANSI form of 16-bit files.
struct VersionBlock {
  std::vector<std::pair<std::string, std::string>> texts;  // bytes are code points
  FixedFileInfo fixed;
  std::uint16_t language = 0x0409;
  std::uint16_t code_page = 1252;
  std::string table = "040904E4";
  bool wide = true;
  bool has_fixed = true;
  bool has_translation = true;

  VersionBlock& Text(std::string name, std::string value) {
    texts.emplace_back(std::move(name), std::move(value));
    return *this;
  }

  std::string Make() const {
    std::string strings;
    for (const auto& [name, value] : texts) {
      Append(&strings, Node(name, Spell(value), value.size() + 1, 1, ""));
    }
    std::string children = Node("StringFileInfo", "", 0, 1, Node(table, "", 0, 1, strings));
    if (has_translation) {
      const std::string pair = Word(language) + Word(code_page);
      Append(&children, Node("VarFileInfo", "", 0, 1, Node("Translation", pair, 4, 0, "")));
    }
    const std::string info = has_fixed ? Fixed() : "";
    return Node("VS_VERSION_INFO", info, info.size(), 0, children);
  }

  static std::string Word(std::size_t value) {
    return {static_cast<char>(value), static_cast<char>(value >> 8)};
  }
  static void PutWord(std::string* block, std::size_t at, std::size_t value) {
    block->replace(at, 2, Word(value));
  }
  // The same characters in UTF-16, without a NUL behind them.
  static std::string Wide(std::string_view text) {
    std::string result;
    for (const char c : text) result.append(1, c).append(1, '\0');
    return result;
  }

 private:
  static std::string Long(std::uint32_t value) { return Word(value & 0xFFFF) + Word(value >> 16); }
  static void Pad(std::string* text) { text->resize((text->size() + 3) / 4 * 4); }
  static void Append(std::string* list, const std::string& node) {
    Pad(list);
    *list += node;
  }
  // With its NUL.
  std::string Spell(std::string_view text) const {
    return wide ? Wide(text).append(2, '\0') : std::string(text).append(1, '\0');
  }
  std::string Node(std::string_view key, const std::string& value, std::size_t value_length,
                   std::uint16_t type, const std::string& children) const {
    std::string body = Word(value_length) + (wide ? Word(type) : "") + Spell(key);
    body.insert(0, 2, '\0');
    Pad(&body);
    body += value;
    if (!children.empty()) Pad(&body);
    body += children;
    return body.replace(0, 2, Word(body.size()));
  }
  std::string Fixed() const {
    return Long(0xFEEF04BD) + Long(0x10000) + Long(fixed.file_version_high) +
           Long(fixed.file_version_low) + Long(fixed.product_version_high) +
           Long(fixed.product_version_low) + Long(0x3F) + Long(fixed.flags) +
           Long(fixed.operating_system) + Long(fixed.type) + Long(fixed.subtype) + Long(0) +
           Long(0);
  }
};

}  // namespace scourwell::test

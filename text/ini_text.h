// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace scourwell {

// What a line of an INI text says, with the system's rules. The views lie in the line.
struct IniLine {
  enum class Kind { Other, Header, Key };  // Other: blank, a comment, or nothing that is read
  Kind kind = Kind::Other;
  std::string_view name;   // of the section or key, without blanks around it
  std::string_view value;  // of a key, without blanks and one pair of quotes around it
};
// `line` is without its end.
IniLine ReadIniLine(std::string_view line);
// The line that begins at `begin`: up to, not including, the next CR or LF.
std::string_view IniLineAt(std::string_view text, std::size_t begin);

// An INI text, looked up with the system's rules: the first section and, in it, the first key of a
// name count; names compare without case; blanks around names and values and one pair of quotes
// around a value are dropped; lines that begin with ";" are comments. Any bytes are accepted: what
// is no section or key line is passed over.
//
// The sections are found at once, the keys of one when it is first asked for: a file of half a
// million keys would keep the program from answering otherwise, and a scan needs half of them. An
// index holds offsets only, about ten bytes a key. Texts above 4 GB are not supported.
class IniText {
 public:
  IniText() = default;
  explicit IniText(std::string content);

  // The value as it stands, not cut and not copied; no value when section or key is missing.
  std::optional<std::string_view> Find(std::string_view section, std::string_view key) const;

  std::size_t section_count() const { return headers_.size(); }

 private:
  // Lines found by the name of the section or key in them.
  class NamedLines {
   public:
    std::size_t size() const { return lines_.size(); }
    std::uint32_t operator[](std::size_t number) const { return lines_[number]; }  // its offset

    // Adds the line at `begin` unless one of its name stands already.
    void Add(std::string_view content, std::string_view name, std::size_t begin);
    // The number of the line.
    std::optional<std::uint32_t> Find(std::string_view content, std::string_view name) const;

   private:
    std::size_t SlotFor(std::string_view content, std::string_view name) const;
    void Grow(std::string_view content);

    std::vector<std::uint32_t> lines_;
    std::vector<std::uint32_t> slots_;  // open addressing: 0, or an index into lines_ plus 1
  };

  const NamedLines& KeysOf(std::uint32_t section) const;

  std::string content_;
  NamedLines headers_;
  mutable std::unordered_map<std::uint32_t, NamedLines> keys_;  // of the sections asked for so far
};

}  // namespace scourwell

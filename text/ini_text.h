// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
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

// An INI text, indexed once and looked up with the system's rules: the first section and, in it,
// the first key of a name count; names compare without case; blanks around names and values and
// one pair of quotes around a value are dropped; lines that begin with ";" are comments. Any
// bytes are accepted: what is no section or key line is passed over.
//
// The index holds offsets only, about sixteen bytes a key, so that a file of half a million keys
// stays cheap. Texts above 4 GB are not supported.
class IniText {
 public:
  IniText() = default;
  explicit IniText(std::string content);

  // The value as it stands, not cut and not copied; no value when section or key is missing.
  std::optional<std::string_view> Find(std::string_view section, std::string_view key) const;

  std::size_t section_count() const { return section_count_; }

 private:
  // A section header, or a key of the section whose header is entries_[section].
  struct Entry {
    std::uint32_t section;
    std::uint32_t begin;  // of its line in content_
  };
  static constexpr std::uint32_t kHeader = 0xFFFFFFFF;

  std::string_view NameOf(const Entry& entry) const;
  std::size_t SlotFor(std::uint32_t section, std::string_view name) const;
  std::optional<std::uint32_t> Lookup(std::uint32_t section, std::string_view name) const;
  // Adds an entry unless one of its name stands already; says whether it did.
  bool Add(std::uint32_t section, std::string_view name, std::size_t begin);
  void Grow();

  std::string content_;
  std::vector<Entry> entries_;
  std::vector<std::uint32_t> slots_;  // open addressing: 0, or an index into entries_ plus 1
  std::size_t section_count_ = 0;
};

}  // namespace scourwell

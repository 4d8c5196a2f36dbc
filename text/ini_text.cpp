// SPDX-License-Identifier: MIT
#include "text/ini_text.h"

#include <algorithm>

#include "text/text.h"

namespace scourwell {
namespace {

bool IsBlank(char c) { return c == ' ' || c == '\t' || c == '\v' || c == '\f' || c == '\0'; }

std::string_view Trim(std::string_view text) {
  while (!text.empty() && IsBlank(text.front())) text.remove_prefix(1);
  while (!text.empty() && IsBlank(text.back())) text.remove_suffix(1);
  return text;
}

std::string_view WithoutQuotes(std::string_view text) {
  if (text.size() >= 2 && (text.front() == '"' || text.front() == '\'') &&
      text.front() == text.back()) {
    return text.substr(1, text.size() - 2);
  }
  return text;
}

}  // namespace

// "[name]", with anything behind the last bracket ignored, or "name=value".
IniLine ReadIniLine(std::string_view line) {
  line = Trim(line);
  if (line.empty() || line.front() == ';') return {};
  if (line.front() == '[') {
    const std::size_t close = line.rfind(']');
    if (close == std::string_view::npos) return {};
    return {IniLine::Kind::Header, Trim(line.substr(1, close - 1)), {}};
  }
  const std::size_t equals = line.find('=');
  if (equals == std::string_view::npos) return {};
  return {IniLine::Kind::Key, Trim(line.substr(0, equals)),
          WithoutQuotes(Trim(line.substr(equals + 1)))};
}

std::string_view IniLineAt(std::string_view text, std::size_t begin) {
  std::size_t end = begin;
  while (end < text.size() && text[end] != '\r' && text[end] != '\n') ++end;
  return text.substr(begin, end - begin);
}

IniText::IniText(std::string content) : content_(std::move(content)) {
  const auto lines = static_cast<std::size_t>(std::count(content_.begin(), content_.end(), '\n'));
  while (slots_.size() * 2 < lines * 3) Grow();
  entries_.reserve(lines);
  // No section counts before the first one and in a repeated one.
  std::uint32_t section = kHeader;
  for (std::size_t begin = 0; begin < content_.size();) {
    const std::string_view text = IniLineAt(content_, begin);
    const IniLine line = ReadIniLine(text);
    if (line.kind == IniLine::Kind::Header) {
      section = kHeader;
      if (Add(kHeader, line.name, begin)) {
        section = static_cast<std::uint32_t>(entries_.size() - 1);
        ++section_count_;
      }
    } else if (section != kHeader && line.kind == IniLine::Kind::Key) {
      Add(section, line.name, begin);
    }
    begin += text.size() + 1;
  }
  entries_.shrink_to_fit();
}

std::string_view IniText::NameOf(const Entry& entry) const {
  return ReadIniLine(IniLineAt(content_, entry.begin)).name;
}

// The slot that holds the name, or the empty one where it belongs.
std::size_t IniText::SlotFor(std::uint32_t section, std::string_view name) const {
  const std::size_t mask = slots_.size() - 1;
  std::size_t at = (NoCaseHash()(name) * 31u + section * 2654435761u) & mask;
  for (; slots_[at] != 0; at = (at + 1) & mask) {
    const Entry& entry = entries_[slots_[at] - 1];
    if (entry.section == section && EqualsNoCase(NameOf(entry), name)) break;
  }
  return at;
}

bool IniText::Add(std::uint32_t section, std::string_view name, std::size_t begin) {
  if ((entries_.size() + 1) * 3 > slots_.size() * 2) Grow();
  std::uint32_t& slot = slots_[SlotFor(section, name)];
  if (slot != 0) return false;
  entries_.push_back({section, static_cast<std::uint32_t>(begin)});
  slot = static_cast<std::uint32_t>(entries_.size());
  return true;
}

void IniText::Grow() {
  slots_.assign(slots_.empty() ? 64 : slots_.size() * 2, 0);
  for (std::size_t i = 0; i < entries_.size(); ++i) {
    slots_[SlotFor(entries_[i].section, NameOf(entries_[i]))] = static_cast<std::uint32_t>(i + 1);
  }
}

std::optional<std::uint32_t> IniText::Lookup(std::uint32_t section, std::string_view name) const {
  if (slots_.empty()) return std::nullopt;
  const std::uint32_t slot = slots_[SlotFor(section, name)];
  if (slot == 0) return std::nullopt;
  return slot - 1;
}

std::optional<std::string_view> IniText::Find(std::string_view section,
                                              std::string_view key) const {
  const auto header = Lookup(kHeader, section);
  if (!header) return std::nullopt;
  const auto entry = Lookup(*header, key);
  if (!entry) return std::nullopt;
  return ReadIniLine(IniLineAt(content_, entries_[*entry].begin)).value;
}

}  // namespace scourwell

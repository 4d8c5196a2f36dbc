// SPDX-License-Identifier: MIT
#include "text/ini_text.h"

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

// The name in a line that was read as a header or a key, without a look at the rest of a key's.
std::string_view NameAt(std::string_view content, std::size_t begin) {
  while (IsBlank(content[begin])) ++begin;
  if (content[begin] == '[') return ReadIniLine(IniLineAt(content, begin)).name;
  return Trim(content.substr(begin, content.find('=', begin) - begin));
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
  for (std::size_t begin = 0; begin < content_.size();) {
    const std::string_view text = IniLineAt(content_, begin);
    const IniLine line = ReadIniLine(text);
    if (line.kind == IniLine::Kind::Header) headers_.Add(content_, line.name, begin);
    begin += text.size() + 1;
  }
}

std::optional<std::string_view> IniText::Find(std::string_view section,
                                              std::string_view key) const {
  const auto header = headers_.Find(content_, section);
  if (!header) return std::nullopt;
  const NamedLines& keys = KeysOf(*header);
  const auto number = keys.Find(content_, key);
  if (!number) return std::nullopt;
  return ReadIniLine(IniLineAt(content_, keys[*number])).value;
}

// A section ends at the next header, one that repeats a name included.
const IniText::NamedLines& IniText::KeysOf(std::uint32_t section) const {
  if (const auto known = keys_.find(section); known != keys_.end()) return known->second;
  NamedLines keys;
  std::size_t begin = headers_[section];
  begin += IniLineAt(content_, begin).size() + 1;
  while (begin < content_.size()) {
    const std::string_view text = IniLineAt(content_, begin);
    const IniLine line = ReadIniLine(text);
    if (line.kind == IniLine::Kind::Header) break;
    if (line.kind == IniLine::Kind::Key) keys.Add(content_, line.name, begin);
    begin += text.size() + 1;
  }
  return keys_.emplace(section, std::move(keys)).first->second;
}

// The slot that holds the name, or the empty one where it belongs.
std::size_t IniText::NamedLines::SlotFor(std::string_view content, std::string_view name) const {
  const std::size_t mask = slots_.size() - 1;
  std::size_t at = NoCaseHash()(name) & mask;
  for (; slots_[at] != 0; at = (at + 1) & mask) {
    if (EqualsNoCase(NameAt(content, lines_[slots_[at] - 1]), name)) break;
  }
  return at;
}

void IniText::NamedLines::Add(std::string_view content, std::string_view name, std::size_t begin) {
  if ((lines_.size() + 1) * 3 > slots_.size() * 2) Grow(content);
  std::uint32_t& slot = slots_[SlotFor(content, name)];
  if (slot != 0) return;
  lines_.push_back(static_cast<std::uint32_t>(begin));
  slot = static_cast<std::uint32_t>(lines_.size());
}

void IniText::NamedLines::Grow(std::string_view content) {
  slots_.assign(slots_.empty() ? 64 : slots_.size() * 2, 0);
  for (std::size_t i = 0; i < lines_.size(); ++i) {
    slots_[SlotFor(content, NameAt(content, lines_[i]))] = static_cast<std::uint32_t>(i + 1);
  }
}

std::optional<std::uint32_t> IniText::NamedLines::Find(std::string_view content,
                                                       std::string_view name) const {
  if (slots_.empty()) return std::nullopt;
  const std::uint32_t slot = slots_[SlotFor(content, name)];
  if (slot == 0) return std::nullopt;
  return slot - 1;
}

}  // namespace scourwell

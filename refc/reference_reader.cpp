// SPDX-License-Identifier: MIT
#include "refc/reference_reader.h"

#include "definitions/reference_file.h"
#include "refc/lines.h"
#include "refc/sections.h"
#include "text/ini_text.h"
#include "text/text.h"

namespace scourwell::refc {
namespace {

// Puts a value in plain where it stands. Empty when the program could not read it.
Span Descramble(std::string_view value, std::string& content, Place place, Findings& findings) {
  const auto begin = static_cast<std::size_t>(value.data() - content.data());
  std::string_view raw = TrimNull(value);
  if (raw.size() > kLongestValue) {
    findings.Add(place, "length",
                 "a value of " + std::to_string(raw.size()) + " bytes is cut to " +
                     std::to_string(kLongestValue));
    raw = raw.substr(0, kLongestValue);
  }
  const auto plain = Decrypt(raw);
  if (!plain) {
    findings.Add(place, "characters", "a byte below 12 makes the value unreadable");
    return {static_cast<std::uint32_t>(begin), 0};
  }
  std::copy(plain->begin(), plain->end(), content.begin() + static_cast<std::ptrdiff_t>(begin));
  return {static_cast<std::uint32_t>(begin), static_cast<std::uint16_t>(plain->size())};
}

bool IsBlankOrComment(std::string_view line) {
  const std::size_t first = line.find_first_not_of(" \t\v\f");
  return first == std::string_view::npos || line[first] == ';';
}

}  // namespace

void ReadReference(std::string name, std::string content, DefinitionSet* set, Findings* findings) {
  const std::uint16_t text = set->AddText(std::move(name), std::move(content));
  std::string& stored = set->Text(text);
  SectionCollector sections(*set, *findings);
  bool any = false;
  for (Lines lines(stored); lines.Next();) {
    const IniLine line = ReadIniLine(lines.text());
    const Place place{lines.number(), text};
    if (line.kind == IniLine::Kind::Header) {
      any = true;
      sections.Header(line.name, place);
    } else if (line.kind == IniLine::Kind::Key && any) {
      const Span value = Descramble(line.value, stored, place, *findings);
      sections.Key(line.name, value, place);
    } else if (!IsBlankOrComment(lines.text())) {
      findings->Add(place, "unread", "neither a section nor a key of one");
    }
  }
  if (!any) findings->Add({0, text}, "unread", "the file holds no section");
  sections.Finish(true);
}

}  // namespace scourwell::refc

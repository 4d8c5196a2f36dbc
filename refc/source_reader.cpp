// SPDX-License-Identifier: MIT
#include "refc/source_reader.h"

#include <algorithm>

#include "definitions/reference_file.h"
#include "refc/code_page.h"
#include "refc/escape.h"
#include "refc/lines.h"
#include "refc/sections.h"
#include "text/text.h"

namespace scourwell::refc {
namespace {

constexpr unsigned char kHighestCode = 255 - 12;  // that still has a scrambled form
constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

// The pieces between runs of tabs; no more than `most`, the last one takes the rest.
std::vector<std::string_view> Columns(std::string_view line, std::size_t most) {
  std::vector<std::string_view> columns;
  while (columns.size() < most) {
    const std::size_t end = columns.size() + 1 == most ? line.npos : line.find('\t');
    columns.push_back(TrimBlanks(line.substr(0, end)));
    if (end == line.npos) break;
    line.remove_prefix(std::min(line.find_first_not_of('\t', end), line.size()));
  }
  return columns;
}

// One text of a set in the making.
class Reader {
 public:
  Reader(std::uint16_t text, DefinitionSet& set, Findings& findings)
      : text_(text), set_(set), findings_(findings), sections_(set, findings) {}

  void Read(std::string_view stem);

 private:
  void ReadLine(std::string_view line);
  void Header(std::string_view name);
  void FamilyRow(std::string_view line);
  void ReleaseRow(std::string_view line);
  void CategoryRow(std::string_view line);
  void Numbered(std::string_view line);
  void AddRow(Kind kind, std::string_view spy, std::string_view what);
  void Store(std::uint8_t sequence, std::string_view spy, std::string_view what,
             std::string_view second);
  bool IsStorable(std::string_view value);
  Span SpanOf(std::string_view piece) const;
  void Complain(const char* rule, std::string reason) {
    findings_.Add(place_, rule, std::move(reason));
  }

  std::uint16_t text_;
  DefinitionSet& set_;
  Findings& findings_;
  SectionCollector sections_;
  Place place_;
  std::optional<Family> family_;
  bool numbered_ = false;
};

void Reader::Read(std::string_view stem) {
  std::string& content = set_.Text(text_);
  family_ = FindFamily(stem);
  for (Lines lines(content); lines.Next();) {
    place_ = {lines.number(), text_};
    std::size_t begin = lines.begin();
    std::size_t size = lines.text().size();
    if (begin == 0 && lines.text().starts_with(kByteOrderMark)) {
      begin += kByteOrderMark.size();
      size -= kByteOrderMark.size();
    }
    std::string bad;
    if (const auto line = ToCodePage(content.data() + begin, size, &bad)) {
      std::fill_n(content.data() + begin + line->size(), size - line->size(), ' ');
      ReadLine(*line);
    } else {
      Complain("characters", "the line holds " + bad);
    }
  }
  sections_.Finish(false);
}

void Reader::ReadLine(std::string_view line) {
  if (line.find_first_not_of(" \t") == line.npos || line[0] == '#' || line[0] == ';') return;
  if (line.front() == '[' && line.back() == ']') {
    Header(line.substr(1, line.size() - 2));
  } else if (numbered_) {
    Numbered(line);
  } else if (!family_) {
    Complain("form", "the row stands in no family");
  } else if (*family_ == Family::Release) {
    ReleaseRow(line);
  } else if (*family_ == Family::Categories) {
    CategoryRow(line);
  } else {
    FamilyRow(line);
  }
}

void Reader::Header(std::string_view name) {
  family_ = FindFamily(name);
  numbered_ = !family_;
  if (numbered_) sections_.Header(name, place_);
}

void Reader::FamilyRow(std::string_view line) {
  const std::vector<std::string_view> columns = Columns(line, 5);
  if (columns.size() < 3) {
    return Complain("form", "spy, kind and what to look for are expected, with tabs between them");
  }
  for (std::size_t i = 0; i < 3; ++i) {
    if (columns[i].empty()) return Complain("form", "an empty column");
  }
  const auto kind = FindKind(columns[1]);
  if (!kind) return Complain("form", "no kind is called " + Quoted(columns[1]));
  if (columns.size() < 4 || columns[3].empty()) {
    Complain("source", "the row does not say where it is known from");
  }
  AddRow(*kind, columns[0], columns[2]);
}

void Reader::ReleaseRow(std::string_view line) {
  const std::vector<std::string_view> columns = Columns(line, 2);
  for (std::size_t which = 0; which < kReleaseValues.size(); ++which) {
    if (!EqualsNoCase(kReleaseValues[which].word, columns[0])) continue;
    if (columns.size() < 2 || columns[1].empty()) return Complain("form", "an empty column");
    DefinitionSet::Single& single = set_.release[which];
    if (single.place.line != 0) return Complain("duplicate", "it was said before");
    if (IsStorable(columns[1])) single = {SpanOf(columns[1]), place_};
    return;
  }
  Complain("form", "a release has no " + Quoted(columns[0]));
}

void Reader::CategoryRow(std::string_view line) {
  const std::vector<std::string_view> columns = Columns(line, 3);
  const bool is = columns.size() == 3;
  if (columns.size() < 2 || columns[1].empty() || (is && columns[1] != "is") ||
      columns.back().empty()) {
    return Complain("form", "a category and what it does are expected, or SPY is CATEGORY");
  }
  Store(*SequenceFor(is ? Kind::Category : Kind::CategoryText, *family_), {}, columns[0],
        columns.back());
}

void Reader::Numbered(std::string_view line) {
  const std::size_t equals = line.find('=');
  if (equals == line.npos) return Complain("form", "neither a section nor key=value");
  const std::string_view key = TrimBlanks(line.substr(0, equals));
  const std::string_view text = TrimBlanks(line.substr(equals + 1));
  char* const begin = set_.Text(text_).data() + SpanOf(text).begin;
  std::string_view value(begin, text.size());
  if (HoldsRawByte(text)) {
    Complain("characters", "a byte below 12 has no plain form");
  } else {
    value = {begin, Unescape(begin, text.size())};
    IsStorable(value);
  }
  sections_.Key(key, SpanOf(value), place_);  // so that there is no gap as well
}

void Reader::AddRow(Kind kind, std::string_view spy, std::string_view what) {
  std::string_view second;
  if ((kind == Kind::File || kind == Kind::Folder) && what.find('%') != what.npos &&
      what.find('%', what.find('%') + 1) != what.npos) {
    kind = kind == Kind::File ? Kind::DirectFile : Kind::DirectFolder;
  } else if (kind == Kind::Key && FindNoCase(what, "HKEY_CLASSES_ROOT\\") == 0) {
    kind = Kind::ClassKey;
  } else if (kind == Kind::Value || kind == Kind::Checksum) {
    // A key and a name with "\\" between them; a size and a checksum with a blank.
    const std::size_t cut = what.find(kind == Kind::Value ? "\\\\" : " ");
    if (cut == what.npos || cut + 2 > what.size()) {
      return Complain("form", kind == Kind::Value ? "key\\\\name is expected"
                                                  : "a size and a checksum are expected");
    }
    second = TrimBlanks(what.substr(cut + (kind == Kind::Value ? 2 : 1)));
    what = what.substr(0, cut + (kind == Kind::Value ? 1 : 0));
    if (second.empty()) return Complain("form", "a value without a name");
  }
  const auto sequence = SequenceFor(kind, *family_);
  if (!sequence) {
    return Complain("form", "rows of this kind do not belong to the family " +
                                std::string(FamilyName(*family_)));
  }
  Store(*sequence, spy, what, second);
}

void Reader::Store(std::uint8_t sequence, std::string_view spy, std::string_view what,
                   std::string_view second) {
  auto& rows = set_.rows[sequence];
  const int most = Catalogue()[sequence].most;
  if (rows.size() >= static_cast<std::size_t>(most)) {
    return Complain("unread",
                    "the program reads " + std::to_string(most) + " entries of a sequence");
  }
  if (!IsStorable(spy) || !IsStorable(what) || !IsStorable(second)) return;
  rows.push_back({{SpanOf(spy), SpanOf(what), SpanOf(second)}, place_});
}

bool Reader::IsStorable(std::string_view value) {
  if (value.size() > kLongestValue) {
    Complain("length", "the text has " + std::to_string(value.size()) +
                           " bytes; the program reads " + std::to_string(kLongestValue));
    return false;
  }
  for (const char c : value) {
    const auto code = static_cast<unsigned char>(c);
    if (code >= 32 && code != 127 && code <= kHighestCode) continue;
    Complain("characters", "a character that no reference file can hold, code " +
                               std::to_string(code) + ", in " + Quoted(value));
    return false;
  }
  return true;
}

Span Reader::SpanOf(std::string_view piece) const {
  if (piece.empty()) return {};  // it may point nowhere
  return {static_cast<std::uint32_t>(piece.data() - set_.Text(text_).data()),
          static_cast<std::uint16_t>(std::min(piece.size(), kLongestSpan))};
}

}  // namespace

void ReadSource(std::string name, std::string_view stem, std::string content, DefinitionSet* set,
                Findings* findings) {
  set->from_source = true;
  const std::uint16_t text = set->AddText(std::move(name), std::move(content));
  Reader(text, *set, *findings).Read(stem);
}

}  // namespace scourwell::refc

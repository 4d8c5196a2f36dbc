// SPDX-License-Identifier: MIT
#include "refc/match.h"

#include <algorithm>

#include "machine/file_utils.h"
#include "refc/lint_text.h"
#include "scan/name_pattern.h"
#include "text/paths.h"
#include "text/text.h"
#include "text/windows_1252.h"

namespace scourwell::refc {
namespace {

// How the folders behind the tokens are called on the Windows versions; folded.
struct TokenFolder {
  std::string_view token;
  std::string_view end;
};
constexpr TokenFolder kTokenFolders[] = {
    {"%WIN%", "\\WINDOWS"},
    {"%WIN%", "\\WINNT"},
    {"%SYS%", "\\SYSTEM"},
    {"%SYS%", "\\SYSTEM32"},
    {"%PF%", "\\PROGRAM FILES"},
    {"%CF%", "\\COMMON FILES"},
    {"%TMP%", "\\TEMP"},
    {"%AD%", "\\APPLICATION DATA"},
    {"%AD%", "\\APPDATA\\ROAMING"},
    {"%Desktop%", "\\DESKTOP"},
    {"%Programs%", "\\PROGRAMS"},
    {"%Personal%", "\\MY DOCUMENTS"},
    {"%Personal%", "\\DOCUMENTS"},
    {"%Favorites%", "\\FAVORITES"},
    {"%StartUp%", "\\STARTUP"},
    {"%StartMenu%", "\\START MENU"},
    {"%DesktopDirectory%", "\\DESKTOP"},
    {"%Common_StartMenu%", "\\START MENU"},
    {"%Common_Programs%", "\\PROGRAMS"},
    {"%Common_StartUp%", "\\STARTUP"},
    {"%Common_DesktopDirectory%", "\\DESKTOP"},
    {"%Common_Favorites%", "\\FAVORITES"},
};

// What an item may be, and its text, folded. An item that says its kind is nothing else.
class Item {
 public:
  explicit Item(std::string_view text) {
    const std::size_t colon = text.find(':');
    if (colon != text.npos && colon > 1) said_ = FindKind(TrimBlanks(text.substr(0, colon)));
    if (said_) text = TrimBlanks(text.substr(colon + 1));
    text_ = Upper(From1252(text));
    key_ = text_.starts_with("HKEY_");
    path_ = !key_ && HoldsSeparator(text_);
  }

  bool Hits(Kind kind, const std::string& value, const std::string& second) const;

 private:
  bool IsSaid(Kind kind) const { return said_ && KindWord(*said_) == KindWord(kind); }
  bool MayBe(Kind kind) const {
    if (said_) return IsSaid(kind);
    switch (kind) {
      case Kind::Key:
      case Kind::ClassKey:
      case Kind::KeyPart:
      case Kind::Value:
        return key_;
      case Kind::File:
      case Kind::Folder:
      case Kind::Process:
        return !key_;
      case Kind::DirectFile:
      case Kind::DirectFolder:
        return path_;
      case Kind::Cookie:
        return !key_ && text_.ends_with(".TXT");
      case Kind::Program:
      case Kind::ProgramPart:
        return !key_ && !path_;
      default:
        return false;
    }
  }
  bool Found(std::string_view signature, bool folder) const;
  bool AtFixedPlace(std::string_view value, bool folder) const;
  bool IsValue(std::string_view key, std::string_view name) const;

  std::optional<Kind> said_;
  std::string text_;
  bool key_ = false;
  bool path_ = false;
};

// The paths to compare: the item itself and, for folders, those above it.
template <class Compare>
bool AnyPath(std::string_view path, bool folders, Compare&& compare) {
  for (;;) {
    if (compare(path)) return true;
    if (!folders || FolderPart(path).empty()) return false;
    path = FolderPart(path);
  }
}

bool EndsInPath(std::string_view path, std::string_view end) {
  return path.ends_with(end) &&
         (path.size() == end.size() || EndsInSeparator(path.substr(0, path.size() - end.size())));
}

bool Item::Found(std::string_view value, bool folder) const {
  const std::string signature = Upper(NormalizeSignature(From1252(value)));
  if (ClassifyPattern(signature) == PatternKind::Unusable) return false;
  const std::string_view pattern = FileNamePart(signature);
  const std::string_view above = FolderPart(signature);
  return AnyPath(text_, folder, [&](std::string_view path) {
    if (!MayMatch(pattern, FileNamePart(path))) return false;
    return above.empty() || EndsInPath(FolderPart(path), above);
  });
}

bool Item::AtFixedPlace(std::string_view value, bool folder) const {
  std::string_view rest;
  if (!TokenMistake(value, &rest).empty()) return false;
  const std::string_view token = value.substr(0, value.size() - rest.size());
  return AnyPath(text_, folder, [&](std::string_view path) {
    return std::any_of(std::begin(kTokenFolders), std::end(kTokenFolders),
                       [&](const TokenFolder& each) {
                         return each.token == token &&
                                path.ends_with(std::string(each.end) + Upper(From1252(rest)));
                       });
  });
}

bool Item::IsValue(std::string_view key, std::string_view name) const {
  return text_ == std::string(key) + "\\" + std::string(name) ||  // written with two backslashes
         text_ == std::string(key) + std::string(name);
}

bool Item::Hits(Kind kind, const std::string& value, const std::string& second) const {
  if (!MayBe(kind) || value.empty()) return false;
  const std::string folded = Upper(From1252(value));
  switch (kind) {
    case Kind::File:
      return Found(value, false);
    case Kind::Folder:
      return Found(value, true);
    case Kind::DirectFile:
      return AtFixedPlace(value, false);
    case Kind::DirectFolder:
      return AtFixedPlace(value, true);
    case Kind::KeyPart:
    case Kind::Cookie:
    case Kind::CompanyPart:
    case Kind::ProgramPart:
      return text_.find(folded) != std::string::npos;
    case Kind::Process:
      return FileNamePart(text_) == folded;
    case Kind::Value:
      return IsValue(folded, Upper(From1252(second)));
    case Kind::Checksum:
      return text_ == folded + " " + second;
    default:
      return text_ == folded;
  }
}

}  // namespace

std::vector<Hit> Match(const DefinitionSet& set, std::string_view item) {
  const Item wanted(item);
  std::vector<Hit> hits;
  for (std::size_t sequence = 0; sequence < set.rows.size(); ++sequence) {
    const Kind kind = Catalogue()[sequence].kind;
    for (const Row& row : set.rows[sequence]) {
      if (wanted.Hits(kind, std::string(set.View(row, 1)), std::string(set.View(row, 2)))) {
        hits.push_back({static_cast<std::uint8_t>(sequence), &row});
      }
    }
  }
  return hits;
}

}  // namespace scourwell::refc

// SPDX-License-Identifier: MIT
#include "refc/lint_rows.h"

#include <algorithm>

#include "machine/file_utils.h"
#include "machine/system_folders.h"
#include "refc/built_in.h"
#include "refc/lint_text.h"
#include "refc/provenance.h"
#include "scan/name_pattern.h"
#include "text/paths.h"
#include "text/text.h"

namespace scourwell::refc {
namespace {

// A shorter name belongs to several programs, unless something beside it tells them apart.
constexpr std::size_t kLeastName = 8;

bool HasWildcard(std::string_view text) { return text.find_first_of("*?") != text.npos; }

bool IsNumber(std::string_view text, std::size_t digits) {
  return !text.empty() && text.size() <= digits &&
         text.find_first_not_of("0123456789") == text.npos;
}

}  // namespace

bool IsNarrowPattern(std::string_view value) {
  const std::string signature = NormalizeSignature(value);
  return ClassifyPattern(signature) == PatternKind::Wildcard &&
         Distinctive(signature) >= kLeastDistinctive;
}

RowJudge::RowJudge(const DefinitionSet& set, Findings& findings) : set_(set), findings_(findings) {
  for (const std::string_view site : good_.Names(GoodList::Sites)) {
    cookies_.push_back("DEFAULT@" + Upper(site) + "[1].TXT");
  }
  for (const char* user : {"ADMINISTRATOR@", "OWNER@", "USER@", "HOME PC@"}) {
    cookies_.emplace_back(user);
  }
}

void RowJudge::Judge(const Row& row, const Listed& listed) {
  row_ = &row;
  place_ = row.place;
  spy_ = set_.View(row, 0);
  value_ = set_.View(row, 1);
  second_ = set_.View(row, 2);
  if (listed.family) Category(*listed.family);
  if (BuiltInRows::Get().Has(listed.kind, value_, second_)) {
    Complain("built-in", Quoted(value_) + " is compiled into the program");
  }
  switch (listed.kind) {
    case Kind::File:
    case Kind::Folder:
      return Searched(listed.kind == Kind::Folder);
    case Kind::DirectFile:
    case Kind::DirectFolder:
      return Direct(listed.kind == Kind::DirectFolder);
    case Kind::KeyPart:
      return KeyPart();
    case Kind::Value:
      return Value();
    case Kind::Process:
      return Process();
    case Kind::Key:
      return Key(2);
    case Kind::ClassKey:
      return Key(1);
    case Kind::Cookie:
      return Cookie();
    case Kind::Checksum:
      return Checksum();
    case Kind::Withdrawn:
      return Withdrawn();
    case Kind::Program:
    case Kind::ProgramPart:
      return Program(listed.kind == Kind::ProgramPart);
    default:
      return VersionText(listed.kind);
  }
}

void RowJudge::Category(Family family) {
  if (FamilyByName(spy_) == family) return;
  Complain("category",
           Quoted(spy_) + " does not sound like one of the " + std::string(FamilyName(family)));
}

void RowJudge::Searched(bool folder) {
  if (BeginsWithSeparator(value_)) return Complain("form", "the path begins with \"\\\"");
  std::string_view rest;
  if (value_.find('%') != value_.npos && !TokenMistake(value_, &rest).starts_with("no folder")) {
    return Complain("token", "a searched row with a folder token; its place is not looked at");
  }
  const std::string signature = NormalizeSignature(value_);
  switch (ClassifyPattern(signature)) {
    case PatternKind::Unusable:
      return Complain("form", "no listing of a folder could find " + Quoted(value_));
    case PatternKind::Relative:
      return OwnPart(signature, folder);
    case PatternKind::Wildcard:  // compared with good names all at once
      if (Distinctive(signature) < kLeastDistinctive) {
        Complain("broad", "fewer than five distinctive characters in " + Quoted(value_));
      }
      return;
    case PatternKind::Name:
      break;
  }
  if (!folder) Short();
  if (good_.Has(folder ? GoodList::Folders : GoodList::Files, signature)) {
    Complain("known-good", Quoted(value_) + " ships with Windows or a common program");
  }
}

// Only a source can say at which place it names the file.
void RowJudge::Short() {
  const auto [source, comment] = ProvenanceOf(set_, *row_);
  if (value_.size() >= kLeastName || source.empty() || comment.find('%') != comment.npos) return;
  Complain("short", Quoted(value_) +
                        " has fewer than eight characters: give its folder, or say in the comment "
                        "behind which token the source names it");
}

void RowJudge::Direct(bool folder) {
  std::string_view rest;
  if (const std::string mistake = TokenMistake(value_, &rest); !mistake.empty()) {
    return Complain("token", mistake);
  }
  if (HasWildcard(rest)) return Complain("form", "a fixed place has no wildcards");
  if (rest.size() < 2 || EndsInSeparator(rest) || !IsPlainPath("C:" + std::string(rest))) {
    return Complain("form", Quoted(value_) + " names no file or folder");
  }
  OwnPart(rest.substr(1), folder);
}

// One part at least must belong to no good program.
void RowJudge::OwnPart(std::string_view path, bool folder) {
  for (const std::string_view part : Parts(path)) {
    if (IsSharedFolder(part)) continue;
    if (HasWildcard(part)
            ? Distinctive(part) >= kLeastDistinctive
            : !good_.Has(GoodList::Files, part) && !good_.Has(GoodList::Folders, part)) {
      return;
    }
  }
  Complain("known-good", std::string(folder ? "the folder " : "the file ") + Quoted(value_) +
                             " has no part of its own: Windows or common programs use them all");
}

void RowJudge::Process() {
  if (HoldsSeparator(value_) || HasWildcard(value_) ||
      ClassifyPattern(value_) == PatternKind::Unusable) {
    return Complain("form", "a process is a file name without path and wildcards");
  }
  if (good_.Has(GoodList::Files, value_)) {
    Complain("known-good", Quoted(value_) + " is a program of Windows or a common one");
  }
}

// A fragment is looked for anywhere in a cookie's name; "[" ends the site's part of it.
void RowJudge::Cookie() {
  if (HoldsSeparator(value_) || HasWildcard(value_)) {
    return Complain("form", "a fragment has no wildcards and no \"\\\"");
  }
  if (LongestRun(value_) < (value_.ends_with('[') ? 3 : kLeastDistinctive)) {
    return Complain("broad", "too few characters in a row in " + Quoted(value_));
  }
  const std::string fragment = Upper(value_);
  for (const std::string& cookie : cookies_) {
    if (cookie.find(fragment) == cookie.npos) continue;
    return Complain("cookie", Quoted(value_) + " is found in " + cookie);
  }
}

void RowJudge::VersionText(Kind kind) {
  const bool part = kind == Kind::CompanyPart;
  if (value_.size() < (part ? kLeastDistinctive : 3)) {
    return Complain("broad", "too short a text: " + Quoted(value_));
  }
  const bool file = kind == Kind::OriginalName || kind == Kind::InternalName;
  std::string_view good;
  if (part) good = good_.Holding(GoodList::Makers, Upper(value_));
  if (file ? good_.Has(GoodList::Files, value_) ||
                 good_.Has(GoodList::Files, std::string(value_) + ".exe")
           : !good.empty() || good_.Has(GoodList::Makers, value_) ||
                 good_.Has(GoodList::Folders, value_)) {
    Complain("known-good", Quoted(value_) + " is said by programs of Windows or common ones");
  }
}

void RowJudge::Checksum() {
  const std::string_view size = value_;
  if (!IsNumber(size, 10) || size.starts_with('0') || !IsNumber(second_, 3) ||
      LeadingNumber(second_) > 255) {
    Complain("form", "a size in bytes and a checksum of 0 to 255 are expected");
  }
}

void RowJudge::Program(bool part) {
  if (value_.size() < (part ? kLeastDistinctive : 3) || LongestRun(value_) < 3) {
    return Complain("broad", "too short a name: " + Quoted(value_));
  }
  for (const GoodList list : {GoodList::Folders, GoodList::Makers}) {
    const std::string_view good = part ? good_.Holding(list, Upper(value_)) : value_;
    if (part ? good.empty() : !good_.Has(list, value_)) continue;
    return Complain("known-good", Quoted(value_) + " is found in " + Quoted(good));
  }
}

void RowJudge::Withdrawn() {
  if (BuiltInRows::Get().CanWithdraw(value_)) return;
  Complain("withdrawn", "no compiled-in file, folder, cookie or process is " + Quoted(value_));
}

}  // namespace scourwell::refc

// SPDX-License-Identifier: MIT

// The rules for rows of the registry.
#include <algorithm>

#include "machine/file_utils.h"
#include "refc/lint_rows.h"
#include "refc/lint_text.h"
#include "refc/walked_keys.h"
#include "text/paths.h"
#include "text/text.h"

namespace scourwell::refc {
namespace {

constexpr std::string_view kSoftware = "Software\\";
constexpr std::string_view kClasses = "Software\\Classes\\";
constexpr std::string_view kUninstall = "Software\\Microsoft\\Windows\\CurrentVersion\\Uninstall\\";

}  // namespace

bool RowJudge::IsKnownGoodClass(std::string_view part) {
  if (!IsClassId(part) || !good_.Has(GoodList::ClassIds, part)) return false;
  Complain("class-id", std::string(part) + " belongs to Windows or a common program");
  return true;
}

void RowJudge::KeyPath(std::string_view key) {
  const std::string_view below = BelowRoot(key);
  for (const std::string_view part : Parts(below)) {
    if (IsKnownGoodClass(part)) return;
  }
  std::string canonical(key);
  if (StartsWithNoCase(below, kClasses)) {
    canonical = "HKEY_CLASSES_ROOT\\" + std::string(below.substr(kClasses.size()));
  }
  if (const std::string_view good = good_.KeyAtOrBelow(canonical); !good.empty()) {
    return Complain("known-good", "the key would take " + std::string(good) + " with it");
  }
  for (const std::string_view above : {kUninstall, kSoftware}) {
    if (!StartsWithNoCase(below, above)) continue;
    const std::string_view name = below.substr(above.size());
    if (!HoldsSeparator(name) && good_.Has(GoodList::Folders, name)) {
      Complain("known-good", Quoted(name) + " is the key of a common program");
    }
    return;
  }
}

void RowJudge::Key(std::size_t least_parts) {
  const std::vector<std::string_view> parts = Parts(BelowRoot(value_));
  if (std::any_of(parts.begin(), parts.end(), [](auto part) { return part.empty(); })) {
    return Complain("form", Quoted(value_) + " is no path of a key below one of the four roots");
  }
  if (parts.size() < least_parts) return Complain("broad", "too much lies below this key");
  KeyPath(value_);
}

// Such a row is found anywhere in a path: only what stands for one component may be one.
void RowJudge::KeyPart() {
  if (IsClassId(value_)) {
    IsKnownGoodClass(value_);
    return;
  }
  const bool module = value_.find('/') != value_.npos;
  if (module ? Distinctive(value_.substr(value_.rfind('/') + 1)) < kLeastDistinctive
             : Parts(BelowRoot(value_)).size() < 4) {
    return Complain("broad",
                    "neither a class identifier, nor a path of four parts below a root, "
                    "nor the path of one module");
  }
  if (const auto good = good_.Holding(GoodList::Keys, Upper(value_)); !good.empty()) {
    Complain("known-good", "it would find " + std::string(good));
  } else if (!module && !IsWalked(value_)) {
    Complain("reach", "the registry phase walks through no key at or above " + Quoted(value_) +
                          "; a key row finds it");
  }
}

void RowJudge::Value() {
  if (!EndsInSeparator(value_) || value_.find("\\\\") != value_.npos || BelowRoot(value_).empty()) {
    return Complain("form", Quoted(value_) +
                                " is no key below one of the four roots, or does not "
                                "end in \"\\\"");
  }
  if (IsKnownGoodClass(second_)) return;
  const std::string_view name = FileNamePart(second_);
  if (good_.Has(GoodList::RunValues, second_) || good_.Has(GoodList::Files, name) ||
      good_.Has(GoodList::Files, std::string(name) + ".exe")) {
    Complain("known-good", Quoted(second_) + " is a value of Windows or a common program");
  }
}

}  // namespace scourwell::refc

// SPDX-License-Identifier: MIT
#include "scan/cookie_scan.h"

#include "machine/file_utils.h"
#include "text/text.h"

namespace scourwell {
namespace {

bool IsCookieName(std::string_view name) { return EndsWithNoCase(name, ".txt"); }

}  // namespace

CookieScan::CookieScan(Files& files, Pump& pump, ErrorLog& log, FindingSink& sink,
                       ScanProgress& progress, const DefinitionList<CookieFragment>& definitions)
    : files_(files),
      pump_(pump),
      log_(log),
      sink_(sink),
      progress_(progress),
      definitions_(definitions),
      index_(definitions, &CookieFragment::fragment) {}

// All names first: then it is known how many there are to compare.
void CookieScan::ScanCookie(const std::string& folder, bool all) {
  log_.Trap("ScanCookie", [&]() -> Outcome {
    if (!IsAbsolutePath(folder)) return {};  // the system names no cookie folder
    std::vector<std::string> cookies;
    Outcome listed = ListCookies(folder, &cookies);
    const auto count = static_cast<std::uint32_t>(cookies.size());
    progress_.phase.Begin(count);
    progress_.phase.BeginPortion(count);
    for (const std::string& cookie : cookies) {
      if (!pump_.Next()) return {};
      Check(AddPathToFileName(folder, cookie), cookie, all);
      progress_.phase.Step();
    }
    progress_.phase.EndPortion();
    if (listed.ok() || listed.code() == kPathNotFound) return {};
    return std::move(listed).With("Folder: ", folder);
  });
}

Outcome CookieScan::ListCookies(const std::string& folder, std::vector<std::string>* cookies) {
  return files_.List(AddPathToFileName(folder, "*.*"), [&](const DirEntry& entry) {
    if (!pump_.Next()) return false;
    if ((entry.attributes & (kHidden | kSystem | kFolder)) == 0 && IsCookieName(entry.name)) {
      cookies->push_back(entry.name);
    }
    return true;
  });
}

void CookieScan::Check(const std::string& path, const std::string& name, bool all) {
  progress_.lblScan = path;
  ++progress_.scanned_files;
  if (const auto row = index_.FirstRowIn(name)) {
    ReportOnce(sink_, FoundCookie{path}, definitions_[*row].spy);
  } else if (all) {
    ReportOnce(sink_, FoundCookie{path}, "Other");
  }
}

}  // namespace scourwell

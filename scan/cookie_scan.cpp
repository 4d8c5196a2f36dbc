// SPDX-License-Identifier: MIT
#include "scan/cookie_scan.h"

#include <algorithm>

#include "machine/file_utils.h"
#include "text/text.h"

namespace scourwell {
namespace {

constexpr std::uint64_t kLargestCookie = 256u << 10;
constexpr int kRecordLines = 9;  // the last of them is a "*"

bool IsCookieName(std::string_view name) { return EndsWithNoCase(name, ".txt"); }

// "user@site[1].txt"
bool NamesSite(std::string_view name) {
  const std::size_t at = name.find('@');
  const std::size_t open = name.rfind('[');
  if (at == 0 || at == name.npos || open == name.npos || open < at) return false;
  const std::string_view end = name.substr(open + 1);
  const std::size_t digits = std::min(end.find_first_not_of("0123456789"), end.size());
  return digits > 0 && EqualsNoCase(end.substr(digits), "].txt");
}

bool HoldsRecord(std::string_view content) {
  for (int line = 1; line < kRecordLines; ++line) {
    const std::size_t end = content.find('\n');
    if (end == content.npos) return false;
    content.remove_prefix(end + 1);
  }
  return content.starts_with("*\n") || content.starts_with("*\r\n");
}

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

// The folder may be one of the user's own: a setting names it. Newer browsers give cookies names
// that say nothing.
bool CookieScan::IsCookie(const std::string& path, const std::string& name) {
  if (NamesSite(name)) return true;
  std::string content;
  return files_.Read(path, kLargestCookie, &content).ok() && HoldsRecord(content);
}

void CookieScan::Check(const std::string& path, const std::string& name, bool all) {
  progress_.lblScan = path;
  ++progress_.scanned_files;
  if (!IsCookie(path, name)) return;
  if (const auto row = index_.FirstRowIn(name)) {
    const CookieFragment& definition = definitions_[*row];
    ReportOnce(sink_, FoundCookie{path}, {definition.spy, Certainty::Part, definition.source});
  } else if (all) {
    ReportOnce(sink_, FoundCookie{path}, {"Other", Certainty::Beside, DefinitionSource::Setting});
  }
}

}  // namespace scourwell

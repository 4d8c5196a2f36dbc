#include "scan/cookie_scan.h"

#include "platform/file_utils.h"
#include "platform/text.h"

namespace scourwell {

CookieScan::CookieScan(Files& files, Pump& pump, ErrorLog& log, DetectionSink& sink,
                       ScanProgress& progress, const SignatureList& list)
    : files_(files),
      pump_(pump),
      log_(log),
      sink_(sink),
      progress_(progress),
      list_(list),
      index_(list, &SignatureRow::sub2, kRowSpyCookie) {}

void CookieScan::ScanCookie(const std::string& folder, bool all) {
  static_cast<void>(log_.Trap("ScanCookie", [&]() -> Outcome {
    if (!IsAbsolutePath(folder)) return {};  // the system names no cookie folder
    Outcome listed = files_.List(AddPathToFileName(folder, "*.*"), [&](const DirEntry& entry) {
      if (!pump_.Next()) return false;
      if ((entry.attributes & (kHidden | kSystem | kFolder)) == 0) {
        Check(AddPathToFileName(folder, entry.name), entry.name, all);
      }
      return true;
    });
    if (listed.ok() || listed.number() == kPathNotFound) return {};
    return std::move(listed).With("Folder: ", folder);
  }));
}

void CookieScan::Check(const std::string& path, const std::string& name, bool all) {
  constexpr std::string_view kExtension = ".txt";
  if (name.size() < kExtension.size() ||
      !EqualsNoCase(std::string_view(name).substr(name.size() - kExtension.size()), kExtension)) {
    return;
  }
  progress_.lblScan = path;
  ++progress_.scanned_files;
  if (const auto row = index_.FirstRowIn(name)) {
    ReportOnce(sink_, kSpyCookie, kCodeFile, path, list_[*row].sub1);
  } else if (all) {
    ReportOnce(sink_, kSpyCookie, kCodeFile, path, "Other");
  }
}

}  // namespace scourwell

// SPDX-License-Identifier: MIT
#include "results/scan_log.h"

#include "machine/file_utils.h"
#include "machine/version_resource.h"
#include "machine/version_texts.h"
#include "results/log_lines.h"
#include "text/text.h"

namespace scourwell {
namespace {

std::string TrueFalse(bool value) { return value ? "True" : "False"; }

}  // namespace

void ScanLog::CreateDriveScanLogFile() {
  parts_.log.Trap("CreateDriveScanLogFile", [&]() -> Outcome {
    const HitList& hits = parts_.hits;
    Lines lines;
    lines.Add("\r\n" + Text(Caption::LogFolderScan)).Add(kShortRule);
    for (std::size_t i = 0; i < hits.size(); ++i) {
      const Finding& found = hits.row(i).finding;
      if (!parts_.pump.Next()) return {};
      const auto* folder = std::get_if<FoundFolder>(&found.object);
      if (folder) lines.Add(found.spy + " folder:" + folder->path);
    }
    lines.Add(Text(Caption::LogFolderResult));
    lines.Add(Text(Caption::LogSuspiciousFolders) + std::to_string(hits.counters().folders));
    lines.Add("\r\n" + Text(Caption::LogFileScan)).Add(kShortRule);
    for (std::size_t i = 0; i < hits.size(); ++i) {
      const Finding& found = hits.row(i).finding;
      if (!parts_.pump.Next()) return {};
      if (std::holds_alternative<FoundFolder>(found.object)) continue;
      const std::string* path = PathOnDisk(found.object);
      if (!path) continue;
      lines.Add(found.spy + " file:" + *path);
      lines.Add(FileLines(*path));
    }
    lines.Add(Text(Caption::LogFileResult));
    lines.Add(Text(Caption::LogSuspiciousFiles) + std::to_string(hits.counters().files));
    lines.Add(Text(Caption::LogEndOfSection));
    return Append(lines.text());
  });
}

// The indented lines of one file, ending so that Add leaves two empty lines behind them.
std::string ScanLog::FileLines(const std::string& path) {
  const FileFacts facts = FactsOf(path, "CreateDriveScanLogFile");
  std::string lines = "\tFileSize :" + facts.size + " kb\r\n\tLast accessed  :" + facts.accessed +
                      "\r\n\tBuild :" + facts.build + "\r\n\tOS :-" + facts.system + "\r\n";
  if (parts_.settings.ExtraLogInfo) {
    lines += ExtraLines(facts, parts_.file_version.GetVerHeader(path), "\t");
  }
  return lines + "\r\n";
}

ScanLog::FileFacts ScanLog::FactsOf(const std::string& path, const char* method) {
  DirEntry entry;
  const Outcome found = parts_.files.Stat(path, &entry);
  if (!found.ok()) parts_.log.LogFailure(Outcome(found).With("File: ", path), method);
  FileFacts facts;
  facts.size = Kilobytes(entry.size);
  if (entry.accessed) {
    facts.accessed = parts_.clock.GeneralDate(parts_.clock.ToLocal(entry.accessed));
  }
  FixedFileInfo info;
  facts.versioned = ReadFixedVersion(parts_.versions, path, &info).ok();
  if (facts.versioned) {
    facts.fixed = info;
    facts.build = VersionText(info.file_version_high, info.file_version_low);
    facts.system = OperatingSystemText(info.operating_system);
  }
  return facts;
}

void ScanLog::FinishScan() {
  parts_.log.Trap("FinishScan", [&]() -> Outcome {
    const COpSysInfo& os = parts_.os;
    const ProgramVersion& version = parts_.version;
    Lines lines;
    lines.Add("\r\n").Add(kLongRule);
    lines.Add(Text(Caption::LogComponentsFound) + " " +
              std::to_string(parts_.hits.counters().Total()));
    lines.Add(kLongRule);
    lines.Add("\r\n" + Text(Caption::LogScanFinishedOn) + " " +
              parts_.clock.GeneralDate(parts_.clock.Now()));
    lines.Add(Text(Caption::LogSystemInformation)).Add("\r\n").Add(kLongRule);
    lines.Add("Application Version: " + std::to_string(version.major) + "." +
              std::to_string(version.minor) + "." + std::to_string(version.revision));
    lines.Add(kLongRule);
    lines.Add("Major Version: " + std::to_string(os.MajorVersion()));
    lines.Add("Minor Version: " + std::to_string(os.MinorVersion()));
    lines.Add("Build Number Version: " + std::to_string(os.BuildNumber()));
    lines.Add("Platform ID: " + std::to_string(os.PlatformID()));
    lines.Add("Service Pack Major: " + std::to_string(os.ServicePackMajor()));
    lines.Add("Service Pack Minor: " + std::to_string(os.ServicePackMinor()));
    lines.Add("Suite Mask: " + std::to_string(os.SuiteMask()));
    lines.Add("Platform: " + os.Platform());
    lines.Add("Platform Version: " + os.Version());
    lines.Add("OS Product Name: " + os.ProductTypeName());
    lines.Add("CSD Version: " + os.CSDVersion());
    lines.Add("Is Windows XP: " + TrueFalse(os.IsWinXP()));
    lines.Add("Is Windows 2K: " + TrueFalse(os.IsWin2K()));
    lines.Add("Is Windows NT: " + TrueFalse(os.IsWinNT()));
    lines.Add("Is Windows 9x: " + TrueFalse(os.IsWin9x()));
    lines.Add("Is Windows 95: " + TrueFalse(os.IsWin95()));
    lines.Add("Is Windows 98: " + TrueFalse(os.IsWin98()));
    lines.Add("Is Windows Me: " + TrueFalse(os.IsWinME()));
    lines.Add("\r\n").Add(kLongRule);
    return Append(lines.text());
  });
}

Outcome ScanLog::Append(std::string_view text) {
  std::string& path = parts_.settings.LogFilePath;
  const std::string bytes = parts_.code_pages.ToFile(text);
  Outcome written = parts_.files.Append(path, bytes);
  written_.insert(path);
  if (written.ok()) return {};
  const std::string fallback = AddPathToFileName(parts_.folders.application, FileNamePart(path));
  written = std::move(written).With("LogFile: ", path);
  if (fallback == path || !parts_.files.Append(fallback, bytes).ok()) return written;
  path = fallback;
  written_.insert(path);
  return std::move(written).With("Written to: ", fallback);
}

}  // namespace scourwell

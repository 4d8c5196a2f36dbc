// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <set>
#include <string>
#include <string_view>

#include "machine/error_log.h"
#include "machine/file_version.h"
#include "machine/op_sys_info.h"
#include "machine/system_folders.h"
#include "platform/processes.h"
#include "platform/pump.h"
#include "platform/versions.h"
#include "results/hit_list.h"
#include "results/removal.h"
#include "settings/program_version.h"
#include "text/captions.h"

namespace scourwell {

// Writes the sections of the scan log. Each is appended as a whole, lines ending in CR LF; all
// scans of a run append to the same file. When its folder has gone or refuses, the log goes on in
// the application folder, and AppSettings::LogFilePath follows. A section that is stopped on the
// way is not written: what stands in the log is whole.
class ScanLog {
 public:
  struct Parts {
    Files& files;
    Clock& clock;
    CodePages& code_pages;
    Versions& versions;
    FileVersion& file_version;
    Processes& processes;
    Pump& pump;
    ErrorLog& log;
    const Captions& captions;
    AppSettings& settings;
    const HitList& hits;
    const COpSysInfo& os;
    const SystemFolders& folders;
    ProgramVersion version;
  };

  explicit ScanLog(const Parts& parts) : parts_(parts) {}

  void CreateMemoryLogFile(const std::vector<ProcessEntry>& tasklist);
  void CreateDriveScanLogFile();
  void CreateCookieScanLogFile();
  void CreateRegistryScanLogFile();
  // The closing block.
  void FinishScan();
  // What a removal did, one line an object.
  void AddRemoval(const RemovalReport& report);

  // The files of this run: more than one when the log's folder has changed.
  const std::set<std::string>& written() const { return written_; }

 private:
  std::string Text(Caption caption) const { return parts_.captions.Text(caption); }
  // What a section says of a file; empty where it is not known.
  struct FileFacts {
    std::string size;  // kilobytes
    std::string accessed;
    std::string build;
    std::string system;
    bool versioned = false;
    FixedFileInfo fixed;  // nothing but zeros without a version
  };
  using VersionTexts = std::array<std::string, kVersionFields>;
  // The process that the memory section has come to, for the record of a failure.
  struct Entry {
    std::size_t number = 0;
    std::string module;
    FixedFileInfo fixed;
  };
  FileFacts FactsOf(const std::string& path, const char* method);
  std::string FileLines(const std::string& path);
  // Further lines of a file with ExtraLogInfo.
  static std::string ExtraLines(const FileFacts& facts, const VersionTexts& texts,
                                const std::string& indent);
  Outcome WriteMemorySection(const std::vector<ProcessEntry>& tasklist, Entry* entry);
  std::string ProcessLines(const ProcessEntry& process, std::size_t indent, Entry* entry);
  Outcome Append(std::string_view text);

  Parts parts_;
  std::set<std::string> written_;
};

}  // namespace scourwell

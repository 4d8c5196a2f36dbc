// SPDX-License-Identifier: MIT

// The sections of the memory, cookie and registry phases.
#include "machine/file_utils.h"
#include "machine/version_texts.h"
#include "results/log_lines.h"
#include "results/scan_log.h"
#include "scan/finding_texts.h"
#include "scan/memory_scan.h"
#include "text/text.h"

namespace scourwell {
namespace {

constexpr char kMemoryRule[] = "=================================================";

std::string ViewText(bool view64) { return view64 ? std::string(kView64) : ""; }

}  // namespace

void ScanLog::CreateMemoryLogFile(const std::vector<ProcessEntry>& tasklist) {
  parts_.log.Trap("CreateMemoryLogFile", [&]() -> Outcome {
    Entry entry;
    Outcome written;
    try {
      written = WriteMemorySection(tasklist, &entry);
    } catch (const std::bad_alloc&) {
      written = Outcome::Failed(kOutOfMemory).With("LogFile: ", parts_.settings.LogFilePath);
    }
    if (written.ok()) return {};
    const FixedFileInfo& fixed = entry.fixed;
    return std::move(written)
        .With("ModuleName: ", entry.module)
        .With("FileVer: ", VersionText(fixed.file_version_high, fixed.file_version_low))
        .With("ProdVer: ", VersionText(fixed.product_version_high, fixed.product_version_low))
        .With("FileFlags: ", FileFlagsText(fixed.flags))
        .With("FileOS: ", OperatingSystemText(fixed.operating_system))
        .With("FileType: ", FileTypeText(fixed.type))
        .With("FileSubType: ", std::to_string(fixed.subtype))
        .With("i: ", std::to_string(entry.number));
  });
}

Outcome ScanLog::WriteMemorySection(const std::vector<ProcessEntry>& tasklist, Entry* entry) {
  const bool nt = parts_.os.IsWinNT();
  Lines lines;
  lines.Add(parts_.clock.GeneralDate(parts_.clock.Now()) + " " + Text(Caption::LogMemoryScan))
      .Add(kMemoryRule);
  lines.Add(Text(Caption::LogRunningPrograms))
      .Add(kShortRule)
      .Add(Text(Caption::LogLoadedModules) + "\r\n");
  for (const ProcessEntry& process : tasklist) {
    if (!parts_.pump.Next()) return {};
    *entry = {entry->number + 1, process.path, {}};
    const std::string number = std::to_string(entry->number);
    const std::string_view name = nt ? FileNamePart(process.path) : process.path;
    lines.Add("#:" + number + " (" + std::string(name) + ")");
    // Lined up under the parenthesis.
    lines.Add(nt ? ProcessLines(process, number.size() + 3, entry) : std::string("\r\n"));
  }
  lines.Add(Text(Caption::LogMemoryResult));
  // The count is the index behind the last entry: it has always been one too high.
  lines.Add(Text(Caption::LogTotalModules) + std::to_string(tasklist.size() + 1));
  lines.Add(Text(Caption::LogSuspiciousModules)).Add(Text(Caption::LogEndOfSection));
  return Append(lines.text());
}

// The lines of one process, ending so that Add leaves two empty lines behind them.
std::string ScanLog::ProcessLines(const ProcessEntry& process, std::size_t indent, Entry* entry) {
  const FileFacts facts = FactsOf(process.path, "CreateMemoryLogFile");
  entry->fixed = facts.fixed;
  const std::string blanks(indent, ' ');
  Lines lines;
  lines.Add(blanks + "Path:" + process.path);
  lines.Add(blanks + "BasePriority:" + PriorityName(process.priority_class));
  lines.Add(blanks + "FileSize :" + facts.size + " kb");
  lines.Add(blanks + "Last accessed  :" + facts.accessed);
  lines.Add(blanks + "Build :" + facts.build);
  lines.Add(blanks + "OS :-" + facts.system);
  const VersionTexts texts = parts_.file_version.GetVerHeader(process.path);
  lines.Add(blanks + "Description :" + texts[kFileDescription]);
  lines.Add(blanks + "Version  :" + texts[kFileVersion]);
  lines.Add(blanks + "Product Name:" + texts[kProductName]);
  if (parts_.settings.ExtraLogInfo) {
    lines.Add(blanks + "Process identifier :" + std::to_string(process.id));
    for (const std::string& module : parts_.processes.Modules(process.id)) {
      lines.Add(blanks + "Module :" + module);
    }
    return lines.text() + ExtraLines(facts, texts, blanks) + "\r\n";
  }
  return lines.text() + "\r\n";
}

std::string ScanLog::ExtraLines(const FileFacts& facts, const VersionTexts& texts,
                                const std::string& indent) {
  Lines lines;
  lines.Add(indent + "File version :" + texts[kFileVersion]);
  lines.Add(indent + "Product version :" + texts[kProductVersion]);
  lines.Add(indent + "Company :" + texts[kCompanyName]);
  lines.Add(indent + "File description :" + texts[kFileDescription]);
  lines.Add(indent + "Internal name :" + texts[kInternalName]);
  lines.Add(indent + "Original name :" + texts[kOriginalFileName]);
  lines.Add(indent + "Flags :" + (facts.versioned ? FileFlagsText(facts.fixed.flags) : ""));
  lines.Add(indent + "Type :" + (facts.versioned ? FileTypeText(facts.fixed.type) : ""));
  return lines.text();
}

void ScanLog::CreateCookieScanLogFile() {
  parts_.log.Trap("CreateCookieScanLogFile", [&]() -> Outcome {
    const HitList& hits = parts_.hits;
    Lines lines;
    lines.Add("\r\n" + Text(Caption::LogCookieScan)).Add(kShortRule);
    for (std::size_t i = 0; i < hits.size(); ++i) {
      const Finding& found = hits.row(i).finding;
      if (!parts_.pump.Next()) return {};
      const auto* cookie = std::get_if<FoundCookie>(&found.object);
      if (cookie) lines.Add(found.spy + " Cookie:" + cookie->path);
    }
    lines.Add("\r\n").Add(Text(Caption::LogCookieResult));
    lines.Add(Text(Caption::LogSuspiciousCookies) + std::to_string(hits.counters().files));
    lines.Add(Text(Caption::LogEndOfSection));
    return Append(lines.text());
  });
}

// Keys and values stand as in a registry export.
void ScanLog::CreateRegistryScanLogFile() {
  parts_.log.Trap("CreateRegistryScanLogFile", [&]() -> Outcome {
    const HitList& hits = parts_.hits;
    Lines lines;
    lines.Add(Text(Caption::LogRegistryScan) + "\r\n").Add(kShortRule);
    for (std::size_t i = 0; i < hits.size(); ++i) {
      const Finding& found = hits.row(i).finding;
      if (!parts_.pump.Next()) return {};
      const auto* key = std::get_if<FoundKey>(&found.object);
      if (!key) continue;
      lines.Add("Registry Key Type = " + found.spy + ViewText(key->view64) + ":\r\n");
      lines.Add("[" + FullKeyPath(key->place) + "]\r\n");
    }
    for (std::size_t i = 0; i < hits.size(); ++i) {
      const Finding& found = hits.row(i).finding;
      if (!parts_.pump.Next()) return {};
      const auto* value = std::get_if<FoundValue>(&found.object);
      if (!value) continue;
      lines.Add("Registry Key Value Type = " + found.spy + ViewText(value->view64) + ":");
      lines.Add("[" + FullKeyPath(value->key) + "]");
      lines.Add("\"" + value->name + "\"=" + value->data);
    }
    lines.Add(Text(Caption::LogRegistryResult));
    lines.Add(Text(Caption::LogSuspiciousKeys) + std::to_string(hits.counters().registry));
    lines.Add(Text(Caption::LogEndOfSection));
    return Append(lines.text());
  });
}

}  // namespace scourwell

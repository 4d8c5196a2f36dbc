// SPDX-License-Identifier: MIT
#include "backup/backups.h"

#include <algorithm>

#include "machine/file_utils.h"
#include "text/text.h"
#include "text/unicode.h"

namespace scourwell {
namespace {

constexpr char kEnding[] = ".qzp";
constexpr char kScriptEnding[] = ".reg";
constexpr char kExport64[] = "export64.reg";
constexpr std::uint32_t kImportLimit = 15'000;  // milliseconds for one script
constexpr unsigned kMostNames = 1000;
constexpr std::size_t kLongestFileName = 255;  // 16-bit units

// The rules of removal hold for restoring too: an archive is only a file that somebody made. What
// is put back, or lies there unchanged, must not go at the next start.
class Guard : public RestoreGuard {
 public:
  explicit Guard(const Backups::Parts& parts)
      : guard_(parts.files, parts.folders),
        next_start_({parts.files, parts.system, parts.registry, parts.code_pages, parts.os,
                     parts.folders}) {}

  Outcome Allow(const std::string& path, std::vector<std::unique_ptr<FolderHold>>* holds) override {
    HeldWay way;
    Outcome allowed = guard_.Allow(path, &way);
    for (auto& hold : way) holds->push_back(std::move(hold));
    return allowed.ok() ? next_start_.Withdraw(path) : std::move(allowed);
  }

 private:
  PathGuard guard_;
  NextStart next_start_;
};

// A listing compares 8.3 names too: its "*.reg" finds "notes.registry".
bool HasEnding(std::string_view name, std::string_view ending) {
  return name.size() > ending.size() && EndsWithNoCase(name, ending);
}

std::string Stem(const std::string& key) {
  return HasEnding(key, kEnding) ? key.substr(0, key.size() - 4) : key;
}

}  // namespace

std::string Backups::PathOf(std::string_view file_name) const {
  return AddPathToFileName(parts_.settings.BackupFolder, file_name);
}

// Another path would lead to the root or the current folder of some drive.
Outcome Backups::CheckFolder() const {
  if (IsAbsolutePath(PathOf({}))) return {};
  return Outcome::Failed(kBadFileName, "The backup folder is not a full path")
      .With("Folder: ", parts_.settings.BackupFolder);
}

bool Backups::IsUsableName(const std::string& name) const {
  if (name.empty() || HoldsSeparator(name) || name.find_first_of("/:*?\"<>|%") != name.npos) {
    return false;
  }
  if (name.front() == ' ' || name.back() == ' ' || name.front() == '.') return false;
  return IsPlainPath(PathOf(name + kEnding)) &&
         ToUtf16(name + kExport64).size() <= kLongestFileName;
}

bool Backups::Exists(const std::string& name) const {
  return FileExists(parts_.files, PathOf(name + kEnding));
}

std::string Backups::NameForNow() const {
  const LocalTime now = parts_.clock.Now();
  const auto two = [](int number) { return Padded(static_cast<unsigned>(number), 2); };
  const std::string stem = std::to_string(now.year) + "-" + two(now.month) + "-" + two(now.day) +
                           " " + two(now.hour) + two(now.minute) + two(now.second);
  std::string name = stem;
  for (unsigned i = 2; Exists(name) && i < kMostNames; ++i) name = stem + " " + std::to_string(i);
  return name;
}

// Leftovers of an earlier run must never be imported by mistake.
void Backups::DeleteScripts() {
  std::vector<std::string> names;
  static_cast<void>(parts_.files.List(PathOf("*.reg"), [&](const DirEntry& entry) {
    if (!entry.IsFolder() && HasEnding(entry.name, kScriptEnding)) names.push_back(entry.name);
    return true;
  }));
  for (const std::string& name : names) {
    parts_.log.Trap("cmdBackup", [&] { return parts_.files.EraseFile(PathOf(name)); });
  }
}

BackupReport Backups::Create(const std::string& name, const std::vector<const FoundObject*>& rows,
                             ArchiveOptions options) {
  BackupReport report;
  report.archive = parts_.log.TrapOutcome("cmdBackup", [&]() -> Outcome {
    Outcome stored = Store(name, rows, std::move(options), &report);
    return stored.ok() ? Outcome() : std::move(stored).With("Archive: ", name + kEnding);
  });
  for (const std::string& failure : report.failures) {
    parts_.log.LogFailure(Outcome::Failed(kPathFileAccess, "Not backed up: " + failure),
                          "cmdBackup");
  }
  return report;
}

Outcome Backups::Store(const std::string& name, const std::vector<const FoundObject*>& rows,
                       ArchiveOptions options, BackupReport* report) {
  if (Outcome usable = CheckFolder(); !usable.ok()) return usable;
  if (!IsUsableName(name)) return Outcome::Failed(kBadFileName);
  DeleteScripts();
  ArchiveWriter archive(parts_.files, parts_.clock, parts_.pump);
  if (Outcome made = archive.Create(PathOf(name + kEnding), std::move(options)); !made.ok()) {
    return made;
  }
  RegistryBackup registry(parts_.registry, parts_.registry64, parts_.pump, parts_.code_pages,
                          ReaderOf(parts_.os));
  for (std::size_t i = 0; i < rows.size(); ++i) {
    const std::size_t failed = archive.result().failed.size();
    const std::size_t left_out = registry.left_out().size();
    registry.Add(*rows[i]);
    DirEntry there;
    const std::string* path = PathOnDisk(*rows[i]);
    if (path && parts_.files.Stat(*path, &there).code() != kFileNotFound) {
      if (Outcome added = archive.AddFile(*path); !added.ok()) return added;
    }
    if (archive.result().failed.size() > failed || registry.left_out().size() > left_out) {
      report->failed_rows.push_back(i);
    }
  }
  for (const ItemReport& item : archive.result().failed) {
    report->failures.push_back(item.path + ": " + item.why.description());
  }
  report->failures.insert(report->failures.end(), registry.left_out().begin(),
                          registry.left_out().end());
  Outcome added = AddScripts(name, registry, &archive);
  return added.ok() ? archive.Finish() : std::move(added);
}

// Scripts stand in the order in which they are imported: what knows the true types comes last.
Outcome Backups::AddScripts(const std::string& name, const RegistryBackup& registry,
                            ArchiveWriter* archive) {
  const struct {
    const char* ending;
    const RegScript* script;
    bool always;
  } scripts[] = {
      {"key.reg", &registry.keys(), true},
      {"val.reg", &registry.values(), true},
      {"export.reg", &registry.exported(), false},
      {kExport64, &registry.exported64(), false},
  };
  for (const auto& [ending, script, always] : scripts) {
    if (script->empty() && !always) continue;
    if (Outcome added = archive->AddScript(name + ending, script->Bytes()); !added.ok()) {
      return added;
    }
  }
  return {};
}

std::vector<BackupRow> Backups::List() {
  std::vector<BackupRow> rows;
  parts_.log.Trap("frmBackup_Load", [&]() -> Outcome {
    if (Outcome usable = CheckFolder(); !usable.ok()) return usable;
    return parts_.files.List(PathOf("*.qzp"), [&](const DirEntry& entry) {
      if (!entry.IsFolder() && HasEnding(entry.name, kEnding)) {
        rows.push_back({entry.name, entry.size, entry.modified});
      }
      return true;
    });
  });
  return rows;
}

Outcome Backups::Restore(const std::string& key, const FindVolume& find, RestoreResult* result) {
  return parts_.log.TrapOutcome("cmdRestore", [&]() -> Outcome {
    if (Outcome usable = CheckFolder(); !usable.ok()) return usable;
    DeleteScripts();
    ArchiveReader archive(parts_.files, parts_.pump, parts_.code_pages);
    if (Outcome opened = archive.Open(PathOf(key), find); !opened.ok()) {
      return std::move(opened).With("Archive: ", key);
    }
    Guard guard(parts_);
    Extractor extractor(parts_.files, parts_.pump, guard);
    Outcome extracted = extractor.ExtractAll(archive, parts_.settings.BackupFolder);
    *result = extractor.result();
    for (const ItemReport& item : result->failed) {
      Outcome record = item.why;
      parts_.log.LogFailure(std::move(record).With("Path: ", item.path), "cmdRestore");
    }
    if (!extracted.ok()) return std::move(extracted).With("Archive: ", key);
    for (const std::string& script : result->scripts) Import(script);
    return {};
  });
}

// What writes into the 64-bit view. A 64-bit Windows gives our kind of program the 32-bit editor
// even by the full path of the other one; only when it starts a program, "Sysnative" is a name of
// the true system folder.
std::string Backups::Importer64() const {
  if (FileExists(parts_.files, AddPathToFileName(parts_.folders.system, "reg.exe"))) {
    return AddPathToFileName(parts_.folders.windows, "Sysnative\\reg.exe") + " import";
  }
  return AddPathToFileName(parts_.folders.windows, "regedit.exe") + " /S";
}

// Each waits for the one before, so that the last word is the last script's.
void Backups::Import(const std::string& script) {
  parts_.log.Trap("cmdRestore", [&]() -> Outcome {
    DirEntry entry;
    if (!parts_.files.Stat(script, &entry).ok() || entry.size == 0) return {};
    std::string path = script;
    if (path.find(' ') != path.npos) path = parts_.files.ShortPath(script);
    if (path.empty() || path.find(' ') != path.npos) path = "\"" + script + "\"";
    std::string command = "regedit /I /S " + path;
    if (Upper(script).ends_with(Upper(kExport64))) {
      command = Importer64() + " \"" + script + "\"";
    }
    Outcome ran = parts_.shell.Run(command, kImportLimit);
    return ran.ok() ? Outcome() : std::move(ran).With("Script: ", script);
  });
}

// The archive first: without its last piece the volumes are worth nothing.
Outcome Backups::Delete(const std::string& key) {
  return parts_.log.TrapOutcome("cmdClean", [&]() -> Outcome {
    if (Outcome usable = CheckFolder(); !usable.ok()) return usable;
    if (key.empty() || HoldsSeparator(key) || key.find_first_of("/:*?") != key.npos) {
      return Outcome::Failed(kBadFileName);
    }
    if (Outcome erased = parts_.files.EraseFile(PathOf(key)); !erased.ok()) {
      return std::move(erased).With("Archive: ", key);
    }
    for (std::uint32_t number = 1; number <= kMostVolumes; ++number) {
      const std::string volume = PathOf(VolumeName(Stem(key), number));
      if (!FileExists(parts_.files, volume)) break;
      if (Outcome erased = parts_.files.EraseFile(volume); !erased.ok()) return erased;
    }
    return {};
  });
}

}  // namespace scourwell
